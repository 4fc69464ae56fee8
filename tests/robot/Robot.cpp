#include "tests/robot/Robot.h"

#include <QApplication>
#include <QClipboard>
#include <QKeySequence>
#include <QTest>
#include <cstdio>

#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "tests/robot/HostileNumbers.h"
#include "tests/support/Keys.h"
#include "ui/BoardPage.h"
#include "ui/InformationPage.h"
#include "ui/MainPage.h"
#include "ui/PropertiesPage.h"

namespace quarvelle::testing {

namespace {

/// Paper that runs out now and then.
class FlakyJob final : public PrintJob {
public:
    explicit FlakyJob(int sheets) : m_sheets(sheets) {}
    QString begin() override { return m_sheets == 0 ? "No printer." : QString(); }
    QString print(const Sheet&) override { return --m_sheets <= 0 ? "Out of paper." : QString(); }
    QString finish() override { return m_sheets == 7 ? "Jammed." : QString(); }

private:
    int m_sheets;
};

} // namespace

Robot::Robot(unsigned seed) : m_choices(seed), m_random(static_cast<float>(seed)) {}

int Robot::run(long steps) {
    m_stepsLeft = steps;
    while (m_stepsLeft > 0) {
        if (!m_program || !window().isVisible()) {
            m_program = std::make_unique<Program>(m_random, *this, this);
            QObject::connect(window().menus().startover, &QAction::triggered,
                             [this] { m_keepsScore = false; });
            m_keepsScore = false;
            ++m_seen["windows opened"];
            window().show();
        }
        step();
    }
    m_program.reset();
    for (const auto& [what, times] : m_seen)
        std::printf("%s: %ld\n", what.c_str(), times);
    constexpr std::size_t kinds = 9;
    if (steps >= 100000 && m_seen.size() != kinds)
        fail("some of it was never seen");
    return m_failures;
}

void Robot::fail(const std::string& what) {
    ++m_failures;
    std::printf("step %ld (%s): %s\n", m_step, m_done.c_str(), what.c_str());
}

void Robot::yield() {
    if (below(20) == 0)
        wait();
}

void Robot::wait() {
    if (!window().isVisible())
        return;
    if (m_stepsLeft > 0)
        step();
    else
        testing::pressKey(window(), Qt::Key_Q);
}

std::unique_ptr<PrintJob> Robot::choose(const QString&) {
    if (below(4) == 0)
        return nullptr;
    ++m_seen["batches printed"];
    return std::make_unique<FlakyJob>(below(60));
}

void Robot::tellFailure(const QString& reason) {
    ++m_seen["failures told"];
    if (reason.isEmpty())
        fail("a failure without a reason");
}

void Robot::step() {
    --m_stepsLeft;
    ++m_step;
    const struct {
        int weight;
        const char* name;
        std::function<void()> act;
    } actions[] = {
        {30, "click", [this] { clickControl(); }},
        {15, "start", [this] { clickButton(); }},
        {30, "cell", [this] { pressCell(); }},
        {40, "answer", [this] { typeAnswer(); }},
        {20, "key", [this] { pressKey(); }},
        {20, "number", [this] { enterNumber(); }},
        {3, "paste", [this] { paste(); }},
        {8, "menu item", [this] { chooseMenuItem(); }},
        {2, "menu", [this] { openMenu(); }},
        {2, "resize", [this] { resize(); }},
        {1, "nothing", [] { QCoreApplication::processEvents(); }},
    };
    int drawn = below(171);
    for (const auto& action : actions) {
        drawn -= action.weight;
        if (drawn < 0) {
            m_done = action.name;
            action.act();
            break;
        }
    }
    if (below(3000) == 0) {
        m_done = "close";
        window().close();
    }
    if (below(8) == 0)
        QCoreApplication::processEvents();
    check();
}

void Robot::clickControl() {
    std::vector<QWidget*> shown;
    for (auto* widget : window().menus().pages->currentWidget()->findChildren<QWidget*>())
        if (widget->isVisible())
            shown.push_back(widget);
    if (shown.empty())
        return;
    QWidget* widget = oneOf(shown);
    m_done += " " + widget->objectName().toStdString();
    QTest::mouseClick(widget, Qt::LeftButton, {}, {below(widget->width()), below(widget->height())});
}

void Robot::clickButton() {
    const std::vector<QPushButton*> buttons = {
        window().mainPage().controls().Command4, window().mainPage().controls().Command4,
        window().mainPage().controls().Command1, window().informationPage().controls().Command3,
        window().propertiesPage().controls().Command6};
    QPushButton* button = oneOf(buttons);
    if (button->isVisible())
        QTest::mouseClick(button, Qt::LeftButton);
}

void Robot::pressCell() {
    if (!window().boardPage().isVisible())
        return;
    QPoint at(below(900), below(700));
    const auto blanks = blanksOf(state());
    if (!blanks.empty() && below(8) != 0) {
        const Cell cell = *std::next(blanks.begin(), below(static_cast<int>(blanks.size())));
        at = {8 + static_cast<int>((cell.first - 1) * state().cellWidth) + below(24),
              8 + 18 * cell.second - 9};
    }
    QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, at);
}

void Robot::typeAnswer() {
    EntryBox& box = window().boardPage().answerBox();
    if (window().focusWidget() != &box || QApplication::activePopupWidget())
        return;
    if (below(4) == 0)
        return typeText(window(), oneOf(hostileNumbers));
    const double answer = at(state().square, {state().selectedRow, state().selectedColumn});
    box.selectAll();
    typeText(window(), QString::fromStdString(numberText(answer)));
    const int before = state().numbersCorrect;
    testing::pressKey(window(), Qt::Key_Enter);
    if (state().numbersCorrect != before + 1)
        fail("the right number " + numberText(answer) + " was refused");
}

void Robot::pressKey() {
    static const std::vector<Qt::Key> keys{Qt::Key_0,         Qt::Key_7,    Qt::Key_Minus,  Qt::Key_Plus,
                                           Qt::Key_Period,    Qt::Key_E,    Qt::Key_Up,     Qt::Key_Down,
                                           Qt::Key_Up,        Qt::Key_Left, Qt::Key_Home,   Qt::Key_Return,
                                           Qt::Key_Backspace, Qt::Key_Tab,  Qt::Key_Space,  Qt::Key_X,
                                           Qt::Key_Q,         Qt::Key_F10,  Qt::Key_Escape, Qt::Key_Delete};
    const Qt::Key key = oneOf(keys);
    // Most runs are to last a while.
    if (key == Qt::Key_Q && below(10) != 0)
        return;
    const QString name = QKeySequence(key).toString();
    testing::pressKey(window(), key, below(9) == 0 ? Qt::ShiftModifier : Qt::NoModifier,
                      name.size() == 1 ? name : QString());
}

void Robot::enterNumber() {
    const Ui::MainPage& page = window().mainPage().controls();
    static const std::vector<QString> usual{"5", "5",   "7",   "11", "13",  "29",     "101",
                                            "1", "-24", "0.5", "3",  "100", "1000000"};
    const std::vector<EntryBox*> boxes{page.Text1, page.Text2, page.Text3,
                                       page.text4, page.Text5, page.Text7};
    EntryBox* box = oneOf(boxes);
    if (!box->isVisible() || QApplication::activePopupWidget())
        return;
    box->setFocus();
    box->selectAll();
    const QString text = below(3) == 0 ? oneOf(hostileNumbers) : oneOf(usual);
    m_done += " " + box->objectName().toStdString() + " " + text.toStdString();
    typeText(window(), text);
}

void Robot::paste() {
    QApplication::clipboard()->setText(QString(below(3000), '9') + oneOf(hostileNumbers));
    if (auto* box = qobject_cast<EntryBox*>(window().focusWidget()); box && box->isVisible())
        box->paste();
}

void Robot::chooseMenuItem() {
    std::vector<QAction*> items;
    for (QMenu* menu : window().menuBar()->findChildren<QMenu*>()) {
        QAction* parent = menu->menuAction();
        for (QAction* item : menu->actions())
            if (parent->isVisible() && parent->isEnabled() && item->isVisible() && item->isEnabled() &&
                !item->menu())
                items.push_back(item);
    }
    // Submenus are offered with their parent menu.
    std::erase_if(items, [this](QAction* item) {
        const bool settings =
            item->actionGroup() && !window().menus().printoptions->menuAction()->isVisible();
        return settings ||
               ((item == window().menus().quit || item == window().menus().qplaying) && below(30) != 0);
    });
    if (items.empty())
        return;
    QAction* item = oneOf(items);
    m_done += " " + item->objectName().toStdString();
    item->trigger();
}

void Robot::openMenu() {
    for (QMenu* menu : {window().menus().options1, window().menus().size, window().menus().puzzlemode})
        if (menu->menuAction()->isVisible())
            return menu->popup({below(300), below(100)});
}

void Robot::resize() {
    window().setWindowState(Qt::WindowNoState);
    window().resize(below(1400) + 1, below(900) + 1);
}

void Robot::check() {
    if (!window().isVisible())
        return;
    checkPage();
    checkMarks();
    checkReadouts();
    checkBoard();
    const std::array<int, 3> score{state().squaresSolved, state().numbersCorrect, state().numbersIncorrect};
    for (std::size_t i = 0; i < score.size(); ++i)
        if (m_keepsScore && score[i] < m_score[i])
            fail("the score went down");
    m_seen["squares solved"] += m_keepsScore && score[0] > m_score[0];
    m_seen["right answers"] += m_keepsScore && score[1] > m_score[1];
    m_score = score;
    m_keepsScore = state().practising == 1;
    if (window().findChildren<QObject*>().size() > 400)
        fail("objects pile up");
}

void Robot::checkPage() {
    const Ui::MagicSquare2& menus = window().menus();
    const int page = state().currentPage;
    ++m_seen["steps on page " + std::to_string(page)];
    QWidget* const pages[] = {&window().mainPage(), &window().boardPage(), &window().informationPage(),
                              &window().propertiesPage()};
    for (int other = 0; other < 4; ++other)
        if (pages[other]->isVisible() != (other == page))
            fail("page " + std::to_string(other) + " while the page is " + std::to_string(page));
    const bool running = page == Page::board;
    const bool practising = state().practising == 1;
    const std::pair<QAction*, bool> shown[] = {
        {menus.options2->menuAction(), page == Page::main},
        {menus.options1->menuAction(), running},
        {menus.printoptions->menuAction(), !running},
        {menus.puzzlemode->menuAction(), !running},
        {menus.size->menuAction(), !running},
    };
    for (const auto& [menu, visible] : shown)
        if (menu->isVisible() != visible)
            fail(menu->text().toStdString() + " on page " + std::to_string(page));
    if (practising && !running)
        fail("practice on page " + std::to_string(page));
    for (QAction* item : {menus.newsquare, menus.startover, menus.qplaying})
        if (running && item->isVisible() != practising)
            fail(item->text().toStdString());
    if (running && menus.aprinting->isVisible() == practising)
        fail("Abort printing");
    if (menus.chooseproperties->isEnabled() != (page == Page::main) && !running)
        fail("Choose Magic Square Properties");
}

void Robot::checkMarks() {
    const Ui::MagicSquare2& menus = window().menus();
    const QList<QAction*> groups[] = {{menus.panswers, menus.ppuzzles, menus.pboth},
                                      {menus.highlighted, menus.nhighlighted},
                                      {menus.easy, menus.challenging},
                                      menus.size->actions()};
    for (const auto& group : groups)
        if (std::count_if(group.begin(), group.end(), [](QAction* item) { return item->isChecked(); }) != 1)
            fail(group.first()->objectName().toStdString() + ": not one mark");
    const Ui::PropertiesPage& boxes = window().propertiesPage().controls();
    for (const PropertyPair& pair : propertyPairs) {
        const int ticked = (boxes.*pair.onlyMain)->isChecked() + 2 * (boxes.*pair.all)->isChecked();
        const int mode = state().*pair.mode;
        // A run with another size has set the mode aside.
        if (ticked == 3 || (mode != ticked && mode != 0))
            fail((boxes.*pair.all)->objectName().toStdString() + " disagrees with its field");
    }
}

void Robot::checkReadouts() {
    const Ui::MainPage& page = window().mainPage().controls();
    const bool running = state().currentPage == Page::board;
    const int n = state().squareSize;
    const double start = running ? state().baseStart : state().startNumber;
    if (page.Label11->text().toStdString() !=
        magicTotalCaption(numberText(magicTotal(n, start, state().distance))))
        fail("the Magic Total disagrees");
    if (page.Label18->text().toStdString() != lastNumberCaption(n, start, state().distance))
        fail("the last number disagrees");
    if (!page.Label4->text().startsWith(QString("How many (%1 by %1) ").arg(n)))
        fail("the count disagrees");
    if (!running) {
        const bool fits = hasPlayableNumbers(state()) && !boardIsTooLarge(state());
        if (page.Command4->isEnabled() != fits || page.Label19->isHidden() != fits)
            fail("practice is offered for a board that doesn't fit, or the other way round");
    }
}

void Robot::checkBoard() {
    const auto& items = window().boardPage().drawing().items();
    if (items.size() > 21000)
        fail("the drawing grows");
    for (const DrawingItem& item : items)
        if (const auto* text = std::get_if<TextAtPoint>(&item))
            if (std::fabs(leadingNumber(text->text.toStdString())) >= emptyMarker || text->text.isEmpty())
                fail("a blank is drawn as a number");
    const bool playing = state().practising == 1 && state().stopRequested == Request::playing &&
                         window().windowTitle().startsWith("Number of");
    if (playing && static_cast<int>(blanksOf(state()).size()) + 1 != state().remainingBlanks)
        fail("blanks on the board and blanks counted differ");
}

} // namespace quarvelle::testing
