#include <QClipboard>
#include <QDialog>
#include <QKeySequence>
#include <QWheelEvent>
#include <random>

#include "tests/robot/Inspector.h"
#include "ui/PageScale.h"

namespace quarvelle::testing {
/// What a person could type into a number box to see what happens.
static const std::vector<QString> hostileNumbers{
    // clang-format off
    "1E+308", "-1E+308", "1E-320", "999999999", "-0", "1e", "++1", "0x10", "1.5E+16", "000000000", "1E+999",
    "1,5", ".", "-", "inf", "nan", "5.5", "-7", "32771", "1E199", "\xD9\xA3", "\xE2\x88\x92" "3", "1E+15",
    "0.1", "-2.4", "1E-5", "", "0", "103", "99999999", " 13", "7q",
    // clang-format on
};

/// Does what a person could do, one random step after another, at every page and inside every running
/// operation, and checks after each step what must always hold. ROBOT_STEPS and ROBOT_SEED in the environment
/// say how many steps it takes and which; the same seed takes the same steps.
class Robot : public Inspector {
protected:
    const long m_steps = qEnvironmentVariable("ROBOT_STEPS", "100000").toLong();
    const long m_seed = qEnvironmentVariable("ROBOT_SEED", "1").toLong();
    std::mt19937 m_choices{static_cast<unsigned>(m_seed)};

    int below(int limit) { return static_cast<int>(m_choices() % static_cast<unsigned>(limit)); }
    template <class Items>
    auto oneOf(const Items& items) {
        return *std::next(std::begin(items), below(static_cast<int>(std::size(items))));
    }

    void run() {
        random = ScriptedRandom({}, static_cast<float>(m_seed));
        const auto turn = [this](bool acts) {
            watchTurn();
            if (acts && window().isVisible())
                m_step < m_steps ? step() : pressKey(Qt::Key_Q);
            noteRequest();
        };
        events.onYield = [this, turn](int) { turn(below(20) == 0); };
        events.onWait = [this, turn] {
            expect(!blanksOf(state()).empty(), "a solved square stays");
            turn(true);
        };
        printer.dialog = [this](PrintOrder& order) {
            expect(state().printCount > 0 && hasPlayableNumbers(state()), "nothing is to be printed");
            QDialog dialog;
            dialog.open();
            QTest::keyClick(&dialog, Qt::Key_Q);
            order.firstSheet = 1 + below(order.lastSheet);
            order.backwards = below(2) == 0;
            order.collated = below(2) == 0;
            order.copies = 1 + below(3);
            const int steps = 1 + below(60);
            printer.failingStep = 1 + below(steps);
            return below(4) != 0;
        };
        for (open(); m_step < m_steps; step())
            if (!window().isVisible())
                open();
    }

    void open() {
        program = std::make_unique<Program>(random, events, &printer);
        QObject::connect(menus().startover, &QAction::triggered, [this] { m_keepsScore = false; });
        printer.steps = printer.failuresTold = 0;
        m_keepsScore = false;
        window().show();
    }

    void step() {
        const std::tuple<int, const char*, void (Robot::*)()> actions[] = {
            {45, "click", &Robot::clickControl},  {30, "cell", &Robot::pressCell},
            {60, "text", &Robot::enterText},      {20, "key", &Robot::pressAnyKey},
            {10, "item", &Robot::chooseMenuItem}, {2, "menu", &Robot::openMenu},
            {2, "resize", &Robot::resize},        {2, "zoom", &Robot::zoom}};
        ++m_step;
        if (state().currentPage != Page::board)
            m_stops = 0;
        int drawn = below(171);
        const auto* action = actions;
        while ((drawn -= std::get<int>(*action)) >= 0)
            ++action;
        m_done = std::get<1>(*action);
        (this->*std::get<2>(*action))();
        if (below(3000) == 0)
            window().close();
        if (below(8) == 0)
            QCoreApplication::processEvents();
        if (window().isVisible())
            check();
    }

    /// The controls of a class that a person sees.
    std::vector<QWidget*> shown(const char* className) {
        std::vector<QWidget*> widgets;
        for (auto* widget : menus().pages->currentWidget()->findChildren<QWidget*>())
            if (widget->isVisible() && widget->inherits(className))
                widgets.push_back(widget);
        return widgets;
    }

    void clickControl() {
        auto widgets = shown(below(3) == 0 ? "QPushButton" : "QWidget");
        widgets.push_back(menus().pages->currentWidget());
        QWidget* widget = oneOf(widgets);
        m_done += " " + widget->objectName().toStdString();
        QTest::mouseClick(widget, Qt::LeftButton, {}, {below(widget->width()), below(widget->height())});
    }

    void pressCell() {
        if (!window().boardPage().isVisible())
            return;
        const int width = static_cast<int>(state().cellWidth);
        const double factor = PageScale::factorOf(window().boardPage());
        // On the screen, from one grid line to the next.
        const auto areaOf = [=](Cell cell) {
            const QPointF corner(width * (cell.row - 1) + 8, 18 * (cell.column - 1) + 8);
            const QPoint end = ((corner + QPointF(width, 18)) * factor).toPoint();
            return QRect((corner * factor).toPoint(), end - QPoint(1, 1));
        };
        const auto boxOf = [=](Cell cell) {
            const QPoint end = (QPointF(width * cell.row + 9, 18 * cell.column + 8) * factor).toPoint();
            return QRect(areaOf(cell).topLeft(), end - QPoint(1, 1));
        };
        const auto blanks = blanksOf(state());
        QPoint point{below(900), below(700)};
        if (!blanks.empty() && below(8) != 0) {
            const QRect area = areaOf(oneOf(blanks));
            point = area.topLeft() + QPoint{below(area.width()), below(area.height())};
        }
        Cell cell{static_cast<int>(std::floor((point.x() / factor - 8) / width)) + 1,
                  static_cast<int>(std::floor((point.y() / factor - 8) / 18)) + 1};
        // A pixel that shows the ends of two cells belongs to one of them.
        cell.row += areaOf(cell).right() < point.x();
        cell.column += areaOf(cell).bottom() < point.y();
        cell.row -= areaOf(cell).left() > point.x();
        cell.column -= areaOf(cell).top() > point.y();
        const auto look = [this] {
            const EntryBox& box = answerBox();
            return std::tuple(box.isVisible(), window().focusWidget() == &box, box.isEnabled(),
                              box.geometry(), box.text());
        };
        const bool isOpen = answerBox().isVisible() && answerBox().geometry() == boxOf(cell);
        const bool opens = plays() && blanks.count(cell) != 0 && !isOpen;
        const auto expected = opens ? std::tuple(true, true, true, boxOf(cell), QString()) : look();
        QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, point);
        expect(look() == expected, "an answer is asked for where it shouldn't be, or the other way round");
    }

    void enterText() {
        static const std::vector<QString> usual{"5", "7", "29", "101", "1", "-24", "0.5", "3", "1000000"};
        const auto boxes = shown("QLineEdit");
        if (boxes.empty() || QApplication::activePopupWidget())
            return;
        auto* box = static_cast<EntryBox*>(oneOf(boxes));
        m_done += " " + box->objectName().toStdString();
        box->setFocus();
        box->selectAll();
        if (below(20) == 0) {
            const QString digits(below(3000), '9');
            QApplication::clipboard()->setText(digits + oneOf(hostileNumbers));
            box->paste();
        } else if (box == &answerBox()) {
            answerCell();
        } else {
            typeText(oneOf(below(3) == 0 ? hostileNumbers : usual));
        }
    }

    /// Mostly with the right number.
    void answerCell() {
        const auto answer = numberText(cellAt(state().square, {state().selectedRow, state().selectedColumn}));
        const auto right = QString::fromStdString(answer);
        const bool isMeantRight = below(4) != 0;
        typeText(isMeantRight ? right : oneOf(hostileNumbers));
        const QString typed = answerBox().text();
        answerBox().repaint(); // which scrolls it
        expect(!isMeantRight || (typed == right && answerBox().cursorPositionAt({0, 9}) == 0),
               "an answer can't be read whole");
        const double number = leadingNumber(typed.toStdString());
        const bool isRight = numberText(number) == answer;
        const int remaining = state().remainingBlanks - isRight;
        const bool wasMaximized = window().isMaximized();
        auto expected = score();
        expected[1] += isRight;
        expected[2] += !isRight && (number != 0 || typed == "0");
        pressKey(below(2) == 0 ? Qt::Key_Enter : Qt::Key_Return);
        expect(score() == expected && state().remainingBlanks == remaining, "the score is wrong");
        expect(window().isMaximized() == wasMaximized, "an answer changes the window's size");
        expect(answerBox().text().isEmpty() && answerBox().isVisible() != isRight, "the box is wrong");
    }

    void pressAnyKey() {
        static const std::vector<Qt::Key> keys{
            Qt::Key_7,   Qt::Key_Minus,  Qt::Key_Plus,      Qt::Key_Period, Qt::Key_E,
            Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Left,      Qt::Key_Home,   Qt::Key_Return,
            Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Space,
            Qt::Key_F2,  Qt::Key_End,    Qt::Key_Backtab,   Qt::Key_Right,  Qt::Key_Enter};
        const Qt::KeyboardModifiers modifiers[] = {
            {}, {}, {}, {}, {}, Qt::ShiftModifier, Qt::ControlModifier};
        // Most runs are to last a while.
        const Qt::Key key = below(200) == 0 ? Qt::Key_Q : oneOf(keys);
        const bool isAnswering = answerBox().isVisible();
        const auto before = score();
        const QString name = QKeySequence(key).toString();
        pressKey(key, oneOf(modifiers), name.size() == 1 ? name : "");
        expect(!isAnswering || key == Qt::Key_Return || key == Qt::Key_Enter || score() == before,
               "not only Enter answers");
        expect(key != Qt::Key_Q || state().stopRequested == Request::stop, "Q doesn't stop");
    }

    void chooseMenuItem() {
        std::vector<QAction*> items;
        const std::function<void(const QWidget*)> collect = [&](const QWidget* menu) {
            for (QAction* item : menu->actions())
                if (item->isVisible() && item->isEnabled())
                    item->menu() ? collect(item->menu()) : items.push_back(item);
        };
        collect(window().menuBar());
        if (items.empty())
            return;
        QAction* item = oneOf(items);
        if ((item == menus().quit || item == menus().qplaying) && below(30) != 0)
            return;
        m_done += " " + item->objectName().toStdString();
        item->trigger();
        const int request = state().stopRequested;
        const bool stops = item == menus().qplaying || item == menus().aprinting;
        expect(!stops || request == Request::stop, "goes on");
        expect(item != menus().newsquare || request == Request::abandon, "goes on with the square");
    }

    void openMenu() {
        QMenu* menu = oneOf(std::vector{menus().options1, menus().size, menus().puzzlemode});
        if (menu->menuAction()->isVisible())
            menu->popup({below(300), below(100)});
    }

    void resize() {
        window().setWindowState(Qt::WindowNoState);
        window().resize(QSize{below(3000) + 1, below(1800) + 1});
    }

    void zoom() {
        if (below(3) == 0)
            return oneOf(std::vector{menus().zoomin, menus().zoomout, menus().zoomfit})->trigger();
        QWheelEvent event({}, {}, {}, {0, below(1000) - 500}, Qt::NoButton,
                          below(4) == 0 ? Qt::NoModifier : Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(menus().client->viewport(), &event);
    }
};

TEST_F(Robot, FindsNothing) {
    run();
    program.reset();
    EXPECT_TRUE(m_steps < 100000 || m_seen.size() == 12) << "some of it was never seen";
    const auto* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
    qApp->setProperty("closingLine",
                      QString("robot: %1 steps, %2 failures\n").arg(m_step).arg(result->total_part_count()));
}

/// With random starting numbers and without, through practice and a batch of one.
TEST_F(Robot, LetsHostileNumbersThroughEveryBox) {
    const std::pair<EntryBox*, const char*> boxes[] = {{page().Text1, "1"},   {page().Text2, "5"},
                                                       {page().Text3, "100"}, {page().text4, "1"},
                                                       {page().Text5, "1"},   {page().Text7, "3"}};
    events.onYield = [this](int) { watchTurn(); };
    std::size_t runs = 0;
    events.onWait = [&] {
        check();
        ++runs;
        pressKey(Qt::Key_Q);
    };
    for (const bool randomStarts : {false, true})
        for (const auto& [hostileBox, usual] : boxes)
            for (const QString& number : hostileNumbers) {
                m_done = (hostileBox->objectName() + ": " + number).toStdString();
                page().Check1->setChecked(randomStarts);
                for (const auto& [box, text] : boxes)
                    type(box, box == hostileBox ? number : QString(text));
                click(page().Command4);
                check();
                if (page().Text1->number() > 2)
                    type(page().Text1, "1");
                printer.sheets.clear();
                click(page().Command1);
                runs += printer.sheets.size();
            }
    EXPECT_GT(runs, 1000U);
}

} // namespace quarvelle::testing
