#include "ui/SizeMenu.h"

#include <QActionGroup>
#include <array>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"
#include "ui/MainPage.h"
#include "ui_MainWindow.h"

namespace quarvelle {

namespace {

struct SizeItem {
    QAction* Ui::MagicSquare2::*action;
    int size;
};

constexpr std::array<SizeItem, 8> sizeItems{{
    {&Ui::MagicSquare2::sqr5, 5},
    {&Ui::MagicSquare2::sqr7, 7},
    {&Ui::MagicSquare2::sqr11, 11},
    {&Ui::MagicSquare2::sqr13, 13},
    {&Ui::MagicSquare2::sqr17, 17},
    {&Ui::MagicSquare2::sqr19, 19},
    {&Ui::MagicSquare2::sqr23, 23},
    {&Ui::MagicSquare2::sqr29, 29},
}};

} // namespace

SizeMenu::SizeMenu(ProgramState& state, const Ui::MagicSquare2& window, MainPage& page)
    : m_state(state), m_window(window), m_page(page) {
    // In an exclusive group the chosen item has a bullet, not a tick.
    auto* choice = new QActionGroup(this);
    for (const SizeItem& item : sizeItems) {
        choice->addAction(window.*item.action);
        connect(window.*item.action, &QAction::triggered, this, [this, &item] { sizeItem_Click(item.size); });
    }
    choice->addAction(window.larger);
    // Qt marks the item when it is clicked; since that chooses no size, the mark goes back.
    connect(window.larger, &QAction::triggered, this, [this] { marksize(m_state.squareSize); });
    connect(&page, &MainPage::sizeAccepted, this, &SizeMenu::marksize);
}

void SizeMenu::sizeItem_Click(int size) {
    m_page.acceptSize(size);
    m_page.controls().Text2->setProgramText(numberText(size));
    m_page.fitboard();
}

void SizeMenu::marksize(int x) {
    QAction* chosen = m_window.larger;
    for (const SizeItem& item : sizeItems)
        if (item.size == x)
            chosen = m_window.*item.action;
    chosen->setChecked(true);
}

} // namespace quarvelle
