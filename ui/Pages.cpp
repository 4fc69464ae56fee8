#include "ui/Pages.h"

#include <QApplication>
#include <array>

#include "engine/ProgramState.h"
#include "ui/InformationPage.h"
#include "ui/MainPage.h"
#include "ui/PropertiesPage.h"
#include "ui_MainWindow.h"
#include "widgets/FootLine.h"

namespace quarvelle {

namespace {

/// Which menus each page has, in the order of the page numbers.
struct PageMenus {
    bool quit;             ///< the main "Options"
    bool running;          ///< the "Options" of a run
    bool settings;         ///< "Print Options", "Puzzle-mode" and "Size of Square"
    bool chooseProperties; ///< whether the properties page can be opened
};

constexpr std::array<PageMenus, 4> pageMenus{{
    {true, false, true, true},
    {false, true, false, false},
    {false, false, true, false},
    {false, false, true, false},
}};

} // namespace

Pages::Pages(ProgramState& state, const Ui::MagicSquare2& window, FootLine& foot, MainPage& mainPage,
             InformationPage& informationPage, PropertiesPage& propertiesPage)
    : m_state(state), m_window(window), m_foot(foot), m_mainPage(mainPage),
      m_informationPage(informationPage), m_propertiesPage(propertiesPage) {
    connect(mainPage.controls().Command2, &QPushButton::clicked, this, &Pages::Command2_Click);
    connect(informationPage.controls().Command3, &QPushButton::clicked, this, &Pages::Command3_Click);
    connect(window.chooseproperties, &QAction::triggered, this, &Pages::chooseproperties_Click);
    connect(propertiesPage.controls().Command6, &QPushButton::clicked, this, &Pages::Command6_Click);
}

void Pages::show(int page) {
    const PageMenus& shown = pageMenus[static_cast<std::size_t>(page)];
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    m_foot.clearMessage();
    m_state.currentPage = page;
    // Behind the pages of those numbers stands the board as a batch shows it.
    const bool showsSheets = page == Page::board && m_state.practising != 1;
    m_window.client->setCurrentIndex(showsSheets ? static_cast<int>(pageMenus.size()) : page);
    m_window.client->ensureVisible(0, 0);
    QList<QMenu*> menus;
    if (shown.quit)
        menus << m_window.options2;
    if (shown.running)
        menus << m_window.options1;
    if (shown.settings)
        menus << m_window.printoptions << m_window.puzzlemode << m_window.size;
    m_window.menubar->showMenus(menus);
    m_window.chooseproperties->setEnabled(shown.chooseProperties);
    const QString run = m_state.practising == 1 ? "practice" : "batch";
    for (QAction* item : m_window.options1->actions())
        item->setVisible(item->property("run") == run);
}

void Pages::returnToMain() {
    show(Page::main);
    m_mainPage.fitboard();
}

void Pages::Command2_Click() {
    show(Page::information);
    m_informationPage.controls().Command3->setFocus();
}

void Pages::Command3_Click() {
    returnToMain();
    m_mainPage.controls().Command2->setFocus();
}

void Pages::chooseproperties_Click() {
    show(Page::properties);
    m_propertiesPage.controls().Check2->setFocus();
}

void Pages::Command6_Click() {
    m_propertiesPage.keepOneLineOption();
    returnToMain();
    m_mainPage.focusPractice();
}

} // namespace quarvelle
