#include "practice/MenuCommands.h"

#include <QAction>

#include "ui/MainWindow.h"

namespace quarvelle {

MenuCommands::MenuCommands(MainWindow& window) : QObject(&window), m_window(window) {
    connect(&window.command("newsquare"), &QAction::triggered, this, &MenuCommands::newsquare_Click);
    connect(&window.command("startover"), &QAction::triggered, this, &MenuCommands::startover_Click);
    connect(&window.command("qplaying"), &QAction::triggered, this, &MenuCommands::qplaying_Click);
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
}

} // namespace quarvelle
