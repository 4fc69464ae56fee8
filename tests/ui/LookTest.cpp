#include <QScrollArea>
#include <QScrollBar>

#include "tests/support/WindowFixture.h"
#include "ui/PictureBox.h"

namespace quarvelle::testing {
namespace {

using LookTest = WindowFixture;

TEST_F(LookTest, CaptionsCanBeReadWhole) {
    for (const bool wraps : {false, true})
        EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, wraps).fits());
    const auto expectWhole = [](const auto& widgets, int least) {
        EXPECT_GE(widgets.size(), least);
        for (auto* widget : widgets) {
            EXPECT_TRUE(widget->captionLayout().fits()) << widget->text().toStdString();
            const QString text = widget->text();
            const QImage whole = widget->grab().toImage();
            widget->setText("");
            EXPECT_TRUE(text.isEmpty() || widget->grab().toImage() != whole) << "not drawn";
            widget->setText(text);
        }
    };
    const std::array<const char*, 3> rows[] = {
        {"5", "1", "1"},       {"7", "-77777", "1"},    {"11", "1E+308", "1"},
        {"13", "0.1", "0.03"}, {"29", "1", "99999999"}, {"31", "1", "1"},
        {"89", "1", "1"},      {"97", "8888888", "1"},  {"101", "1", "1"}};
    for (const auto& [size, start, distance] : rows) {
        enter(size, start, distance);
        SCOPED_TRACE(size);
        expectWhole(window().findChildren<CaptionLabel*>(), 21);
        expectWhole(window().findChildren<CaptionCheckBox*>(), 11);
        expectWhole(window().findChildren<CaptionButton*>(), 5);
    }
}

TEST_F(LookTest, TextIsBlackOnTheGivenColoursWhateverTheTheme) {
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(35, 35, 38), QColor(35, 35, 38)));
    for (const auto* label : window().findChildren<CaptionLabel*>())
        EXPECT_EQ(label->palette().color(QPalette::WindowText),
                  label == page().Label19 ? Qt::blue : Qt::black);
    for (const auto* box : window().findChildren<CaptionCheckBox*>()) {
        EXPECT_EQ(box->palette().color(QPalette::WindowText), Qt::black);
        EXPECT_EQ(box->palette().color(box->backgroundRole()), QColor(0, 255, 0));
        EXPECT_EQ(box->palette().color(QPalette::Base), Qt::white) << "the tick is black as well";
    }
    EXPECT_EQ(answerBox().palette().color(QPalette::Text), Qt::black);
    EXPECT_GT(answerBox().palette().color(QPalette::Base).lightness(), 200);
    QApplication::setPalette(light);
}

TEST_F(LookTest, ButtonsShowWhereTheKeyboardIsAndWhatIsDisabled) {
    for (auto* button : menus().pages->findChildren<QAbstractButton*>()) {
        menus().pages->setCurrentWidget(button->parentWidget());
        button->clearFocus();
        const QImage plain = button->grab().toImage();
        button->setFocus();
        EXPECT_TRUE(button->grab().toImage() != plain) << button->objectName().toStdString();
    }
    QPushButton* button = page().Command1;
    menus().pages->setCurrentWidget(button->parentWidget());
    const QImage plain = button->grab().toImage();
    button->setEnabled(false);
    EXPECT_TRUE(button->grab().toImage() != plain);
}

TEST_F(LookTest, PicturesMarkTheCellsOfTheirProperties) {
    const std::pair<const char*, const char*> rows[] = {
        {"Picture1", "x.....x.....x.....x.....x"}, {"Picture2", "...x.....xx.....x.....x.."},
        {"Picture3", "x.x...xx.xx.xx...x.x....."}, {"Picture4", "..x.......x.x.x.......x.."},
        {"Picture5", "x...x.......x.......x...x"}, {"Picture6", ".x...xxx...x.x...xxx...x."}};
    for (const auto& [name, marks] : rows) {
        const QImage image = window().findChild<PictureBox*>(name)->grab().toImage();
        std::string marked;
        for (int cell = 0; cell < 25; ++cell) {
            const QPoint middle(cell % 5 * 24 - 48, cell / 5 * 18 - 36);
            marked += image.pixelColor(image.rect().center() + middle * image.devicePixelRatio()) == Qt::white
                          ? '.'
                          : 'x';
        }
        EXPECT_EQ(marked, marks) << name;
    }
}

TEST_F(LookTest, SmallScreensScroll) {
    window().setWindowState(Qt::WindowNoState);
    window().resize(500, 300);
    QTest::qWait(0);
    const QScrollArea* client = menus().client;
    for (const QRect inner : {page().Label7->geometry(), properties().Picture4->geometry()}) {
        EXPECT_GE(client->horizontalScrollBar()->maximum() + client->viewport()->width(), inner.right());
        EXPECT_GE(client->verticalScrollBar()->maximum() + client->viewport()->height(), inner.bottom());
    }
    client->verticalScrollBar()->setValue(99);
    click(page().Command2);
    EXPECT_EQ(client->verticalScrollBar()->value(), 0) << "each page begins at its top";
}

} // namespace
} // namespace quarvelle::testing
