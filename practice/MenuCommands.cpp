#include "practice/MenuCommands.h"

#include <QActionGroup>

#include "ui/MainWindow.h"

namespace quarvelle {

namespace {

/// A menu item that writes a value into a field of the state. Items of one field are radio items.
struct OptionItem {
    QAction* Ui::MagicSquare2::*action;
    int ProgramState::*field;
    int value;
};

constexpr OptionItem optionItems[] = {
    {&Ui::MagicSquare2::panswers, &ProgramState::puzzleMode, PuzzleMode::answers},
    {&Ui::MagicSquare2::ppuzzles, &ProgramState::puzzleMode, PuzzleMode::puzzles},
    {&Ui::MagicSquare2::pboth, &ProgramState::puzzleMode, PuzzleMode::both},
    {&Ui::MagicSquare2::highlighted, &ProgramState::highlightAnswers, 1},
    {&Ui::MagicSquare2::nhighlighted, &ProgramState::highlightAnswers, 0},
    {&Ui::MagicSquare2::easy, &ProgramState::difficulty, Difficulty::easy},
    {&Ui::MagicSquare2::challenging, &ProgramState::difficulty, Difficulty::challenging},
};

} // namespace

MenuCommands::MenuCommands(MainWindow& window) : QObject(&window), m_window(window) {
    const Ui::MagicSquare2& menus = window.menus();
    auto* group = new QActionGroup(this);
    int ProgramState::*groupField = optionItems[0].field;
    for (const OptionItem& item : optionItems) {
        if (item.field != groupField) {
            group = new QActionGroup(this);
            groupField = item.field;
        }
        group->addAction(menus.*item.action);
        connect(menus.*item.action, &QAction::triggered, this,
                [this, &item] { m_window.state().*item.field = item.value; });
    }
    connect(menus.newsquare, &QAction::triggered, this, &MenuCommands::newsquare_Click);
    connect(menus.startover, &QAction::triggered, this, &MenuCommands::startover_Click);
    connect(menus.qplaying, &QAction::triggered, this, &MenuCommands::qplaying_Click);
    connect(menus.aprinting, &QAction::triggered, this, &MenuCommands::aprinting_Click);
}

void MenuCommands::newsquare_Click() {
    m_window.state().stopRequested = Request::abandon;
}

void MenuCommands::startover_Click() {
    ProgramState& state = m_window.state();
    state.stopRequested = Request::abandon;
    state.numbersCorrect = 0;
    state.numbersIncorrect = 0;
    state.squaresSolved = 0;
}

void MenuCommands::qplaying_Click() {
    m_window.state().stopRequested = Request::stop;
    m_window.menus().chooseproperties->setEnabled(true);
}

void MenuCommands::aprinting_Click() {
    m_window.state().stopRequested = Request::stop;
}

} // namespace quarvelle
