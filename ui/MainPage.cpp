#include "ui/MainPage.h"

#include "board/BoardGeometry.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/PrimeOrder.h"
#include "engine/SquareCount.h"
#include "widgets/KeyCodes.h"

namespace quarvelle {

namespace {

/// What is said where the numbers, and not the size, keep a square from being used.
struct FaultTexts {
    const char* caption;
    const char* sentence;
};

FaultTexts textsOf(NumberFault fault) {
    if (fault == NumberFault::tooLarge)
        return {"(Numbers too Large)", "The numbers are too large."};
    return {"(Numbers too Close)", "Some numbers can't be told apart in 15 digits."};
}

} // namespace

MainPage::MainPage(ProgramState& state, QWidget* parent) : QWidget(parent), m_state(state) {
    m_controls.setupUi(this);
    m_controls.Label19->hide();
    connect(m_controls.Text2, &EntryBox::keyReleased, this, &MainPage::Text2_KeyUp);
    connect(m_controls.text4, &EntryBox::keyReleased, this, &MainPage::text4_KeyUp);
    connect(m_controls.Text5, &EntryBox::keyReleased, this, &MainPage::Text5_KeyUp);
}

void MainPage::stepSize(int keyCode) {
    const bool up = keyCode == KeyCode::up;
    const bool down = keyCode == KeyCode::down && m_state.sizeEntry > 5;
    if ((up || down) && stepToOrder(m_state, up ? 1 : -1))
        m_controls.Text2->setProgramText(numberText(m_state.sizeEntry));
}

void MainPage::Text2_KeyUp(int keyCode) {
    m_state.sizeEntry = m_controls.Text2->number();
    stepSize(keyCode);
    if (primetest(m_state.sizeEntry))
        acceptSize(static_cast<int>(m_state.sizeEntry));
    fitboard();
}

void MainPage::text4_KeyUp(int) {
    m_state.startNumber = m_controls.text4->number();
    showReadouts();
    fitboard();
}

void MainPage::Text5_KeyUp(int) {
    const double entry = m_controls.Text5->number();
    if (entry != 0)
        m_state.distance = entry;
    showReadouts();
    fitboard();
}

void MainPage::acceptSize(int n) {
    m_state.squareSize = static_cast<std::int16_t>(n);
    showReadouts();
    showcounts(n);
    emit sizeAccepted(n);
}

void MainPage::showReadouts() {
    const int n = m_state.squareSize;
    m_state.magicTotalText = numberText(magicTotal(n, m_state.startNumber, m_state.distance));
    m_controls.Label11->setText(QString::fromStdString(magicTotalCaption(m_state.magicTotalText)));
    m_controls.Label18->setText(
        QString::fromStdString(lastNumberCaption(n, m_state.startNumber, m_state.distance)));
}

void MainPage::fitboard() {
    const NumberFault fault = numberFault(m_state);
    const bool playable = fault == NumberFault::none;
    const bool practicable = boardGeometry(m_state).hasAllCells && playable;
    measureBoard(m_state);
    m_controls.Command4->setEnabled(practicable);
    m_controls.Label19->setText(playable ? "(Larger than Page)" : textsOf(fault).caption);
    m_controls.Label19->setVisible(!practicable);
    m_controls.Command1->setEnabled(playable && m_state.squareSize <= maxBatchOrder);
    for (QWidget* button : {m_controls.Command1, m_controls.Command4})
        button->setToolTip(whyDisabled(button));
}

void MainPage::focusPractice() {
    if (m_controls.Command4->isEnabled())
        m_controls.Command4->setFocus();
    else
        m_controls.Text2->setFocus();
}

void MainPage::showcounts(int n) {
    const SquareCount count = squareCount(m_state, n);
    m_controls.Label4->setText(QString::fromStdString(count.question));
    m_controls.Label3->setText(QString::fromStdString(count.fundamental));
    m_controls.Label5->setText(QString::fromStdString(count.shifts));
    m_controls.Label6->setText(QString::fromStdString(count.rotations));
    m_controls.Label7->setText(QString::fromStdString(count.total));
}

QString MainPage::whyDisabled(const QWidget* button) const {
    if (button->isEnabledTo(this))
        return {};
    const NumberFault fault = numberFault(m_state);
    if (fault != NumberFault::none)
        return textsOf(fault).sentence;
    return button == m_controls.Command4 ? QString("The board is larger than the page.")
                                         : QString("Only up to %1 by %1.").arg(maxBatchOrder);
}

} // namespace quarvelle
