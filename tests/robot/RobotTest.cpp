#include <QClipboard>
#include <QKeySequence>
#include <random>

#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "tests/robot/HostileNumbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

long setting(const char* name, long otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariable(name).toLong() : otherwise;
}

/// Does what a person could do, one random step after another, at every page and inside every running
/// operation, and checks after each step what must always hold. ROBOT_STEPS and ROBOT_SEED in the environment
/// say how many steps it takes and which; the same seed takes the same steps.
class Robot : public WindowFixture {
protected:
    const long m_steps = setting("ROBOT_STEPS", 100000);
    const long m_seed = setting("ROBOT_SEED", 1);
    std::mt19937 m_choices{static_cast<unsigned>(m_seed)};
    long m_step = 0;
    std::string m_done;
    bool m_keepsScore = false; ///< practice goes on, and was not started over since the last look
    std::array<int, 3> m_score{};
    std::map<std::string, long> m_seen; ///< how often what was come across

    int below(int limit) { return static_cast<int>(m_choices() % static_cast<unsigned>(limit)); }
    template <class Item>
    Item oneOf(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    void expect(bool holds, const char* what, const QObject* where = nullptr) {
        EXPECT_TRUE(holds) << "step " << m_step << " (" << m_done << "): " << what << ' '
                           << (where ? where->objectName().toStdString() : "");
    }

    void run() {
        random = ScriptedRandom({}, static_cast<float>(m_seed));
        events.onYield = [this](int turn) {
            if (below(20) == 0)
                events.onWait(turn);
        };
        events.onWait = [this](int) {
            if (window().isVisible())
                m_step < m_steps ? step() : pressKey(Qt::Key_Q);
        };
        printer.dialog = [this] {
            printer.failingStep = 1 + below(60);
            const bool prints = below(4) != 0;
            if (prints)
                ++m_seen["batches"];
            return prints;
        };
        for (open(); m_step < m_steps; step())
            if (!window().isVisible())
                open();
    }

    void open() {
        program = std::make_unique<Program>(random, events, &printer);
        QObject::connect(menus().startover, &QAction::triggered, [this] { m_keepsScore = false; });
        m_keepsScore = false;
        window().show();
    }

    void step() {
        const struct {
            int weight;
            const char* name;
            void (Robot::*act)();
        } actions[] = {
            {30, "click", &Robot::clickControl},  {15, "button", &Robot::clickButton},
            {30, "cell", &Robot::pressCell},      {60, "text", &Robot::enterText},
            {20, "key", &Robot::pressAnyKey},     {3, "paste", &Robot::paste},
            {10, "item", &Robot::chooseMenuItem}, {2, "menu", &Robot::openMenu},
            {2, "resize", &Robot::resize},        {1, "other event", &Robot::handleEvents},
        };
        ++m_step;
        int drawn = below(173);
        const auto* action = actions;
        while ((drawn -= action->weight) >= 0)
            ++action;
        m_done = action->name;
        (this->*action->act)();
        if (below(3000) == 0) {
            m_done = "close";
            window().close();
        }
        if (below(8) == 0)
            handleEvents();
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

    void click(const char* className) {
        const auto widgets = shown(className);
        if (widgets.empty())
            return;
        QWidget* widget = oneOf(widgets);
        m_done += " " + widget->objectName().toStdString();
        QTest::mouseClick(widget, Qt::LeftButton, {}, {below(widget->width()), below(widget->height())});
    }

    void clickControl() { click("QWidget"); }
    void clickButton() { click("QPushButton"); }
    void handleEvents() { QCoreApplication::processEvents(); }

    void pressCell() {
        if (!window().boardPage().isVisible())
            return;
        const auto blanks = blanksOf(state());
        if (!blanks.empty() && below(8) != 0)
            press(*std::next(blanks.begin(), below(static_cast<int>(blanks.size()))));
        else
            QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, {below(900), below(700)});
    }

    /// Replaces what a box holds; in the answer's box mostly by the right answer.
    void enterText() {
        static const std::vector<QString> usual{"5", "5",   "7",   "11", "13",  "29",     "101",
                                                "1", "-24", "0.5", "3",  "100", "1000000"};
        const auto boxes = shown("QLineEdit");
        if (boxes.empty() || QApplication::activePopupWidget())
            return;
        auto* box = static_cast<EntryBox*>(oneOf(boxes));
        box->setFocus();
        box->selectAll();
        const bool answers = box == &answerBox() && below(4) != 0;
        const QString text = answers ? QString::fromStdString(numberText(
                                           at(state().square, {state().selectedRow, state().selectedColumn})))
                                     : oneOf(below(3) == 0 ? hostileNumbers : usual);
        m_done += " " + (box->objectName() + " " + text).toStdString();
        typeText(text);
        const int before = state().numbersCorrect;
        if (box == &answerBox())
            pressKey(Qt::Key_Enter);
        expect(!answers || state().numbersCorrect == before + 1, "the right number was refused");
    }

    void pressAnyKey() {
        static const std::vector<Qt::Key> keys{
            Qt::Key_0,    Qt::Key_7,      Qt::Key_Minus,     Qt::Key_Plus,   Qt::Key_Period,
            Qt::Key_E,    Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Up,     Qt::Key_Left,
            Qt::Key_Home, Qt::Key_Return, Qt::Key_X,         Qt::Key_Q,      Qt::Key_Tab,
            Qt::Key_F10,  Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Space};
        const Qt::Key key = oneOf(keys);
        // Most runs are to last a while.
        if (key == Qt::Key_Q && below(10) != 0)
            return;
        const QString name = QKeySequence(key).toString();
        pressKey(key, below(9) == 0 ? Qt::ShiftModifier : Qt::NoModifier,
                 name.size() == 1 ? name : QString());
    }

    void paste() {
        QApplication::clipboard()->setText(QString(below(3000), '9') + oneOf(hostileNumbers));
        if (auto* box = qobject_cast<EntryBox*>(window().focusWidget()); box && box->isVisible())
            box->paste();
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
    }

    void openMenu() {
        for (QMenu* menu : {menus().options1, menus().size, menus().puzzlemode})
            if (menu->menuAction()->isVisible())
                return menu->popup({below(300), below(100)});
    }

    void resize() {
        window().setWindowState(Qt::WindowNoState);
        window().resize(below(1400) + 1, below(900) + 1);
    }

    void check() {
        checkPage();
        checkMarks();
        checkReadouts();
        checkBoard();
        const std::array score{state().squaresSolved, state().numbersCorrect, state().numbersIncorrect};
        for (std::size_t i = 0; i < score.size() && m_keepsScore; ++i) {
            expect(score[i] >= m_score[i], "the score went down");
            if (score[i] > m_score[i])
                ++m_seen["score " + std::to_string(i)];
        }
        m_score = score;
        m_keepsScore = state().practising == 1;
        expect(window().findChildren<QObject*>().size() < 400, "objects pile up");
        if (!printer.told.empty())
            ++m_seen["steps after a failure was told"];
    }

    void checkPage() {
        const int current = state().currentPage;
        const bool running = current == Page::board;
        const bool practising = state().practising == 1;
        ++m_seen["page " + std::to_string(current)];
        QWidget* const pages[] = {&window().mainPage(), &window().boardPage(), &window().informationPage(),
                                  &window().propertiesPage()};
        for (int other = 0; other < 4; ++other)
            expect(pages[other]->isVisible() == (other == current), "is shown or hidden", pages[other]);
        for (const auto& [item, visible] : std::initializer_list<std::pair<QAction*, bool>>{
                 {menus().options2->menuAction(), current == Page::main},
                 {menus().options1->menuAction(), running},
                 {menus().printoptions->menuAction(), !running},
                 {menus().puzzlemode->menuAction(), !running},
                 {menus().size->menuAction(), !running}})
            expect(item->isVisible() == visible, "is shown or hidden", item);
        for (const QAction* item : menus().options1->actions())
            expect(!running || item->isVisible() == (practising != (item == menus().aprinting)),
                   "is shown or hidden", item);
        expect(running || !practising, "practice on another page");
        expect(running || menus().chooseproperties->isEnabled() == (current == Page::main),
               "is enabled or not", menus().chooseproperties);
    }

    void checkMarks() {
        const int puzzleMode = state().practising == 1 ? state().savedPuzzleMode : state().puzzleMode;
        for (const auto& [item, marked] : std::initializer_list<std::pair<QAction*, bool>>{
                 {menus().panswers, puzzleMode == PuzzleMode::answers},
                 {menus().ppuzzles, puzzleMode == PuzzleMode::puzzles},
                 {menus().pboth, puzzleMode == PuzzleMode::both},
                 {menus().highlighted, state().highlightAnswers == 1},
                 {menus().nhighlighted, state().highlightAnswers == 0},
                 {menus().easy, state().difficulty == Difficulty::easy},
                 {menus().challenging, state().difficulty == Difficulty::challenging}})
            expect(item->isChecked() == marked, "disagrees with its field", item);
        const auto sizes = menus().size->actions();
        expect(std::count_if(sizes.begin(), sizes.end(), [](auto* item) { return item->isChecked(); }) == 1,
               "not one mark", menus().size);
        for (const PropertyPair& pair : propertyPairs) {
            const QCheckBox* all = properties().*pair.all;
            const int ticked = (properties().*pair.onlyMain)->isChecked() + 2 * all->isChecked();
            const int mode = state().*pair.mode;
            // A run with another size has set the mode aside.
            expect(ticked != 3 && (mode == ticked || mode == 0), "disagrees with its field", all);
        }
    }

    void checkReadouts() {
        const bool running = state().currentPage == Page::board;
        const int n = state().squareSize;
        const double start = running ? state().baseStart : state().startNumber;
        const double distance = state().distance;
        expect(page().Label11->text().toStdString() ==
                   magicTotalCaption(numberText(magicTotal(n, start, distance))),
               "the Magic Total disagrees");
        expect(page().Label18->text().toStdString() == lastNumberCaption(n, start, distance),
               "the last number disagrees");
        expect(page().Label4->text().startsWith(QString("How many (%1 by %1) ").arg(n)),
               "the count disagrees");
        if (running)
            return;
        const bool fits = hasPlayableNumbers(state()) && !boardIsTooLarge(state());
        expect(page().Command4->isEnabled() == fits && page().Label19->isHidden() == fits,
               "practice is offered for a board that doesn't fit, or the other way round");
    }

    void checkBoard() {
        const Drawing& drawing = window().boardPage().drawing();
        expect(drawing.items().size() < 21000, "the drawing grows");
        for (const TextAtPoint& text : itemsOf<TextAtPoint>(drawing))
            expect(!text.text.isEmpty() && std::fabs(leadingNumber(text.text.toStdString())) < emptyMarker,
                   "a blank is drawn as a number");
        const bool playing = state().practising == 1 && state().stopRequested == Request::playing &&
                             title().starts_with("Number of");
        expect(!playing || static_cast<int>(blanksOf(state()).size()) + 1 == state().remainingBlanks,
               "blanks on the board and blanks counted differ");
    }
};

TEST_F(Robot, FindsNothing) {
    run();
    program.reset();
    EXPECT_TRUE(m_steps < 100000 || m_seen.size() == 9) << "some of it was never seen";
    for (const auto& [what, times] : m_seen)
        std::printf("%s: %ld\n", what.c_str(), times);
    const auto* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
    qApp->setProperty("closingLine",
                      QString("robot: %1 steps, %2 failures\n").arg(m_step).arg(result->total_part_count()));
}

} // namespace
} // namespace quarvelle::testing
