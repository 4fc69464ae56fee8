#include <QClipboard>
#include <QDialog>
#include <random>

#include "tests/robot/Inspector.h"
#include "widgets/PageScale.h"

namespace quarvelle::testing {
/// What a person could type into a number box to see what happens.
static const std::vector<QString> hostileNumbers{
    // clang-format off
    "1E+308", "-1E+308", "1E-320", "999999999", "-0", "1e", "++1", "0x10", "1.5E+16", "000000000", "1E+999",
    "1,5", ".", "-", "inf", "nan", "5.5", "-7", "32771", "1E199", "\xD9\xA3", "\xE2\x88\x92" "3", "1E+15",
    "0.1", "-2.4", "1E-5", "", "0", "103", "99999999", " 13", "7q",
    // clang-format on
};

static const std::set<std::string> mustBeSeen{
    // clang-format off
    "information page", "properties page", "square solved", "batch", "failed batch", "stopped making",
    "stopped playing", "stopped printing", "abandoned making", "abandoned playing", "closed making",
    "closed playing", "closed printing", "showline", "newsquare", "startover", "qplaying", "aprinting", "Ctrl+L", "Ctrl+N", "Ctrl+R", "Ctrl+Q",
    "Alt", "idle Alt",
    // clang-format on
};

/// Does what a person could do, one random step after another, at every page and inside every running
/// operation, and checks after each step what must always hold. ROBOT_STEPS and ROBOT_SEED in the environment
/// say how many steps it takes and which; the same seed takes the same steps.
class Robot : public Inspector {
protected:
    const long m_steps = qEnvironmentVariable("ROBOT_STEPS", "100000").toLong();
    const unsigned m_seed = qEnvironmentVariable("ROBOT_SEED", "1").toUInt();
    /// What kind of step each is, and the details of the one in hand, which are begun anew with each: a step
    /// that draws more or less than it did leaves the others as they were.
    std::mt19937 m_kinds{m_seed}, m_details;

    /// Says last of all what came of it.
    void TearDown() override {
        program.reset();
        const auto* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
        const QString line("robot: %1 steps, %2 failures\n");
        qApp->setProperty("closingLine", line.arg(m_step).arg(result->total_part_count()));
    }

    int below(int limit) { return static_cast<int>(m_details() % static_cast<unsigned>(limit)); }
    template <class Items>
    auto oneOf(const Items& items) {
        return *std::next(std::begin(items), below(static_cast<int>(std::size(items))));
    }

    void run() {
        random = ScriptedRandom({}, static_cast<float>(m_seed));
        const auto turn = [this](bool acts) {
            watchTurn();
            if (acts && window().isVisible() && !HasFailure())
                m_step < m_steps ? step() : pressKey(Qt::Key_Q);
            noteRequest();
        };
        events.onYield = [this, turn] { turn(below(20) == 0); };
        events.onWait = [this, turn] {
            expect(!blanks().empty(), "a solved square stays");
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
        for (open(); m_step < m_steps && !HasFailure(); step())
            if (!window().isVisible())
                open();
    }

    void open() {
        program = std::make_unique<Program>(random, events, &printer);
        QObject::connect(command("startover"), &QAction::triggered, [this] { m_keepsScore = false; });
        printer.steps = printer.failuresTold = 0;
        m_keepsScore = false;
        window().show();
    }

    void step() {
        static const struct {
            unsigned percent; ///< of the steps
            const char* name;
            void (Robot::*take)();
        } kinds[] = {{26, "click", &Robot::clickControl},
                     {18, "cell", &Robot::pressCell},
                     {34, "text", &Robot::enterText},
                     {12, "key", &Robot::pressAnyKey},
                     {6, "item", &Robot::chooseMenuItem},
                     {1, "menu", &Robot::openMenu},
                     {1, "letter", &Robot::pressAltLetter},
                     {1, "resize", &Robot::resize},
                     {1, "zoom", &Robot::zoom}};
        m_details.seed(1'000'003 * m_seed + static_cast<unsigned>(++m_step));
        if (state().currentPage != Page::board)
            m_stops = 0;
        auto drawn = static_cast<unsigned>(m_kinds() % 100);
        const auto* kind = kinds;
        for (; drawn >= kind->percent; ++kind)
            drawn -= kind->percent;
        m_done = kind->name;
        (this->*kind->take)();
        if (below(1000) == 0)
            window().close();
        if (below(8) == 0)
            QCoreApplication::processEvents();
        if (window().isVisible())
            check();
    }

    /// The controls of a class that a person sees.
    QList<QWidget*> shown(const char* className) {
        auto widgets = client()->currentWidget()->findChildren<QWidget*>();
        widgets.removeIf([=](auto* widget) { return !widget->isVisible() || !widget->inherits(className); });
        return widgets;
    }

    void clickControl() {
        auto widgets = shown(below(3) == 0 ? "QPushButton" : "QWidget");
        widgets.push_back(client()->currentWidget());
        QWidget* widget = oneOf(widgets);
        m_done += " " + widget->objectName().toStdString();
        QTest::mouseClick(widget, Qt::LeftButton, {}, {below(widget->width()), below(widget->height())});
    }

    void pressCell() {
        if (!window().boardPage().isVisible())
            return;
        const int width = static_cast<int>(state().cellWidth), n = state().squareSize;
        const double factor = PageScale::factorOf(window().boardPage());
        // On the screen, from one grid line to the next.
        const auto areaOf = [=](Place place) {
            const QPointF corner(width * (place.across - 1) + 8, 18 * (place.down - 1) + 8);
            const QPoint end = ((corner + QPointF(width, 18)) * factor).toPoint();
            return QRect((corner * factor).toPoint(), end - QPoint(1, 1));
        };
        const auto open = blanks();
        QPoint point{below(board().width()), below(board().height())};
        // Beside the board there is nothing, whatever stands there.
        for (int i = 0; i <= n + 1; ++i)
            for (const Place& beside : {Place{0, i}, {i, 0}, {n + 1, i}, {i, n + 1}})
                cellAt(state().puzzle, cellOf(beside)) = emptyMarker;
        if (!open.empty() && below(8) != 0) {
            const QRect area = areaOf(oneOf(open)).adjusted(-1, -1, 1, 1);
            point = area.topLeft() + QPoint{below(area.width()), below(area.height())};
        }
        const auto pressed =
            std::ranges::find_if(open, [&](const Place& place) { return areaOf(place).contains(point); });
        const QPoint corner = answerBox().pos();
        const bool opens = plays() && pressed != open.end() &&
                           !(answerBox().isVisible() && areaOf(*pressed).topLeft() == corner);
        const bool isShown = opens || answerBox().isVisible();
        const QString text = opens ? QString() : answerBox().text();
        QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, point);
        expectEqual(answerBox().isVisible(), isShown, "the box's showing");
        expectEqual(answerBox().isEnabled(), isShown, "the box's working");
        expectEqual(answerBox().pos(), opens ? areaOf(*pressed).topLeft() : corner, "the box's place");
        expectEqual(answerBox().text(), text, "the box's text");
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
        const auto answer = numberText(cellAt(state().square, cellOf(selectedPlace(state()))));
        const auto rightText = QString::fromStdString(answer);
        const bool isMeantRight = below(4) != 0;
        typeText(isMeantRight ? rightText : oneOf(hostileNumbers));
        const QString typed = answerBox().text();
        answerBox().repaint(); // which scrolls it
        if (isMeantRight) {
            expectEqual(typed, rightText, "the answer");
            expectEqual(answerBox().cursorPositionAt({0, 9}), 0, "the first of its digits shown");
        }
        const double number = leadingNumber(typed.toStdString());
        const bool isRight = numberText(number) == answer;
        const bool wasMaximized = window().isMaximized();
        auto expected = score();
        expected[right] += isRight;
        expected[wrong] += !isRight && (number != 0 || typed == "0");
        pressKey(below(2) == 0 ? Qt::Key_Enter : Qt::Key_Return);
        expectEqual(score(), expected, "the score");
        expectEqual(window().isMaximized(), wasMaximized, "the window's size");
        expectEqual(answerBox().text(), QString(), "the box");
        expectEqual(answerBox().isHidden(), isRight, "the box's end");
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
        if (isAnswering && key != Qt::Key_Return && key != Qt::Key_Enter)
            expectEqual(score(), before, "the score without Enter");
        if (key == Qt::Key_Q)
            expectEqual(state().stopRequested, Request::stop, "what Q requests");
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
        if ((item == command("quit") || item == command("qplaying")) && below(30) != 0)
            return;
        m_done += " " + item->objectName().toStdString();
        const bool hearsKeys = window().isActiveWindow() && !QApplication::activePopupWidget();
        const QKeySequence keys = hearsKeys ? item->shortcut() : QKeySequence();
        keys.isEmpty() ? item->trigger() : QTest::keySequence(window().focusWidget(), keys);
        m_seen.insert(keys.toString().toStdString());
        if (item == command("qplaying") || item == command("aprinting"))
            expectEqual(state().stopRequested, Request::stop, "the request");
        if (item == command("newsquare") || item == command("startover"))
            expectEqual(state().stopRequested, Request::abandon, "the request");
        m_seen.insert(item->objectName().toStdString());
    }

    void pressAltLetter() {
        if (!window().isActiveWindow() || QApplication::activePopupWidget())
            return;
        const auto letter = static_cast<Qt::Key>(Qt::Key_A + below(26));
        const bool opens = std::ranges::any_of(window().menuBar()->actions(), [=](QAction* title) {
            return QKeySequence::mnemonic(title->text()) == QKeySequence(Qt::ALT | letter);
        });
        auto* keyboard = window().focusWidget();
        const QString text = keyboard->property("text").toString();
        QTest::keyClick(keyboard, letter, Qt::AltModifier);
        expectEqual(QApplication::activePopupWidget() != nullptr, opens, "what a letter opens");
        expect(window().focusWidget() == keyboard, "the keyboard went elsewhere");
        expectEqual(keyboard->property("text").toString(), text, "what has the keyboard");
        m_seen.insert(opens ? "Alt" : "idle Alt");
    }

    void openMenu() {
        QMenu* chosen = oneOf(std::vector{menu("options1"), menu("size"), menu("puzzlemode")});
        if (window().menuBar()->actions().contains(chosen->menuAction()))
            chosen->popup({below(300), below(100)});
    }

    void resize() {
        window().setWindowState(Qt::WindowNoState);
        window().resize(QSize{below(3000) + 1, below(1800) + 1});
    }

    void zoom() { oneOf(std::vector{command("zoomin"), command("zoomout"), command("zoomfit")})->trigger(); }
};

TEST_F(Robot, FindsNothing) {
    run();
    std::vector<std::string> missing;
    std::ranges::set_difference(mustBeSeen, m_seen, std::back_inserter(missing));
    EXPECT_TRUE(missing.empty() || m_steps < 100000 || HasFailure())
        << "never seen: " << ::testing::PrintToString(missing);
}

} // namespace quarvelle::testing
