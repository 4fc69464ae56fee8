#include "ui/Pages.h"

#include <QApplication>
#include <array>

#include "widgets/FootLine.h"
#include "ui/InformationPage.h"
#include "ui/MainPage.h"
#include "ui/MainWindow.h"
#include "ui/PropertiesPage.h"

namespace quarvelle {

namespace {

/// What a page shows of the menu bar, in the order of the page numbers.
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

/// An item of a run's "Options", shown in practice or in a batch.
struct RunItem {
    QAction* Ui::MagicSquare2::*action;
    bool inPractice;
};

constexpr std::array<RunItem, 4> runItems{{
    {&Ui::MagicSquare2::aprinting, false},
    {&Ui::MagicSquare2::newsquare, true},
    {&Ui::MagicSquare2::startover, true},
    {&Ui::MagicSquare2::qplaying, true},
}};

} // namespace

Pages::Pages(MainWindow& window) : QObject(&window), m_window(window) {
    connect(window.mainPage().controls().Command2, &QPushButton::clicked, this, &Pages::Command2_Click);
    connect(window.informationPage().controls().Command3, &QPushButton::clicked, this,
            &Pages::Command3_Click);
    connect(window.menus().chooseproperties, &QAction::triggered, this, &Pages::chooseproperties_Click);
    connect(window.propertiesPage().controls().Command6, &QPushButton::clicked, this, &Pages::Command6_Click);
}

void Pages::show(MainWindow& window, int page) {
    const PageMenus& shown = pageMenus[static_cast<std::size_t>(page)];
    const Ui::MagicSquare2& menus = window.menus();
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    window.foot().clearMessage();
    window.state().currentPage = page;
    menus.pages->setCurrentIndex(page);
    menus.client->ensureVisible(0, 0);
    menus.options2->menuAction()->setVisible(shown.quit);
    menus.options1->menuAction()->setVisible(shown.running);
    for (QMenu* menu : {menus.printoptions, menus.puzzlemode, menus.size})
        menu->menuAction()->setVisible(shown.settings);
    menus.chooseproperties->setEnabled(shown.chooseProperties);
    for (const RunItem& item : runItems)
        (menus.*item.action)->setVisible(item.inPractice == (window.state().practising == 1));
}

void Pages::returnToMain(MainWindow& window) {
    show(window, Page::main);
    window.mainPage().fitboard();
}

void Pages::Command2_Click() {
    show(m_window, Page::information);
    m_window.informationPage().controls().Command3->setFocus();
}

void Pages::Command3_Click() {
    returnToMain(m_window);
    m_window.mainPage().controls().Command2->setFocus();
}

void Pages::chooseproperties_Click() {
    show(m_window, Page::properties);
    m_window.propertiesPage().controls().Check2->setFocus();
}

void Pages::Command6_Click() {
    m_window.propertiesPage().keepOneLineOption();
    returnToMain(m_window);
    m_window.mainPage().focusPractice();
}

} // namespace quarvelle
