#pragma once

#include <QApplication>
#include <QBitmap>
#include <QDebug>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <stdexcept>

#include "app/Program.h"
#include "board/BoardPage.h"
#include "tests/support/PrintedBoards.h"
#include "tests/support/ScreenReader.h"
#include "tests/support/Scripted.h"
#include "ui/InformationPage.h"
#include "ui/MainPage.h"
#include "ui/PropertiesPage.h"
#include "widgets/FootLine.h"
#include "widgets/PageArea.h"

/// What failures show of Qt's values.
template <class Value>
requires(std::is_same_v<Value, QString> || std::is_same_v<Value, QRect> ||
         std::is_same_v<Value, QPoint>) void PrintTo(const Value& value, std::ostream* out) {
    *out << qPrintable(QDebug::toString(value));
}

namespace quarvelle::testing {

/// What a color covers of a picture.
inline QRect boundsOf(const QImage& picture, const QColor& color) {
    return QRegion(QBitmap::fromImage(picture.createMaskFromColor(color.rgb(), Qt::MaskOutColor)))
        .boundingRect();
}

/// The whole program on a window of its own, with scripted draws and turns.
class WindowFixture : public ::testing::Test {
protected:
    WindowFixture() {
        window().show();
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        events.onFailure = [this, turns = 0]() mutable {
            state().stopRequested = Request::stop;
            // Nothing else ends a run that is deaf to that.
            if (++turns > 100)
                throw std::runtime_error("the run doesn't end");
        };
    }

    MainWindow& window() { return program->window(); }
    ProgramState& state() { return window().state(); }
    const Ui::MainPage& page() { return window().mainPage().controls(); }
    const Ui::PropertiesPage& properties() { return window().propertiesPage().controls(); }
    QAction* command(const char* name) { return &window().command(name); }
    QMenu* menu(const char* name) { return window().findChild<QMenu*>(name); }
    PageArea* client() { return window().findChild<PageArea*>("client"); }
    BoardPage& board() { return window().boardPage(); }
    auto* heardBoard() { return QAccessible::queryAccessibleInterface(&board()); }
    EntryBox& answerBox() { return window().boardPage().answerBox(); }
    /// What the foot of the window shows.
    QString foot() { return window().foot().isVisible() ? window().foot().currentMessage() : ""; }
    std::string title() { return window().windowTitle().toStdString(); }

    /// Presses and releases a key where a person's would go: the open menu, or what has the focus.
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {},
                  bool repeats = false) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QWidget* receiver = QApplication::activePopupWidget();
            if (!receiver)
                receiver = window().focusWidget() ? window().focusWidget() : &window();
            QKeyEvent event(type, key, modifiers, text, repeats);
            QApplication::sendEvent(receiver, &event);
        }
    }

    void typeText(const QString& text) {
        for (const QChar character : text)
            pressKey(character.toUpper().unicode(), {}, character);
    }

    /// Replaces a box's text as a person does, with the mouse and then key by key.
    void type(EntryBox* box, const QString& text) {
        QTest::mouseClick(box, Qt::LeftButton);
        pressKey(Qt::Key_A, Qt::ControlModifier);
        pressKey(Qt::Key_Delete);
        typeText(text);
    }

    void enter(const QString& size, const QString& start, const QString& distance) {
        type(page().Text2, size);
        type(page().text4, start);
        type(page().Text5, distance);
    }

    void print(const QString& order, int count) {
        type(page().Text2, order);
        type(page().Text1, QString::number(count));
        click(page().Command1);
    }

    /// A run of practice. Lets the player act when the first square has come, which gets these blanks, and
    /// again whenever the run would wait, until they quit.
    void play(const std::set<Place>& blanks, const std::function<void()>& player) {
        bool isFirst = true;
        events.onWait = [&] {
            if (isFirst) {
                isFirst = false;
                state().puzzle = state().square;
                for (const Place& place : blanks)
                    cellAt(state().puzzle, cellOf(place)) = emptyMarker;
                state().remainingBlanks = static_cast<int>(blanks.size()) + 1;
            }
            player();
        };
        page().Command4->click(); // which doesn't give it the keyboard
        EXPECT_EQ(state().currentPage, Page::main);
        EXPECT_EQ(window().focusWidget(), page().Command4);
        EXPECT_TRUE(command("chooseproperties")->isEnabled()) << "the way to the properties";
    }

    void click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    ScriptedRandom random;
    ScriptedEvents events;
    FakePrinter printer;
    ScreenReader reader;
    std::unique_ptr<Program> program = std::make_unique<Program>(random, events, &printer);
};

/// How things look in a window of any size; run at other scales of the screen, too.
class LookTest : public WindowFixture {
protected:
    LookTest() { window().setWindowState(Qt::WindowNoState); }

    /// Resizes the window so that its pages have a room of that size.
    void makeRoom(QSizeF size) { window().resize(size.toSize() + QSize(0, window().menuBar()->height())); }
    void expectFilled(QSize room);
};

} // namespace quarvelle::testing
