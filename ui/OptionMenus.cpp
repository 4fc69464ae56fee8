#include "ui/OptionMenus.h"

#include <QActionGroup>

#include "engine/ProgramState.h"
#include "ui_MainWindow.h"

namespace quarvelle {

namespace {

/// A menu item that writes a value into a field of the state. Of the items of a field one is marked.
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

OptionMenus::OptionMenus(ProgramState& state, const Ui::MagicSquare2& window) {
    auto* group = new QActionGroup(this);
    int ProgramState::*groupField = optionItems[0].field;
    for (const OptionItem& item : optionItems) {
        if (item.field != groupField)
            group = new QActionGroup(this);
        groupField = item.field;
        group->addAction(window.*item.action);
        connect(window.*item.action, &QAction::triggered, this,
                [&state, &item] { state.*item.field = item.value; });
    }
}

} // namespace quarvelle
