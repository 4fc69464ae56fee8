#include "ui/BoardPage.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "engine/BoardGeometry.h"
#include "ui/Fonts.h"

namespace quarvelle {

namespace {

void tell(QAccessibleInterface* about, QAccessible::Event what) {
    if (about == nullptr)
        return;
    QAccessibleEvent event(about, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

BoardPage::BoardPage(const ProgramState& state, QWidget* parent) : DrawingSurface(parent), m_state(state) {
    m_controls.setupUi(this);
    // The digits typed stand where the cell's number will: two pixels in, as a line edit has them anyway, and
    // a pixel lower than its middle. At their end only the cursor needs room.
    answerBox().setTextMargins(0, 1, -2, 0);
}

void BoardPage::beginPuzzle() {
    tellCellsCameOrWent();
}

void BoardPage::endPuzzle() {
    // No cell that goes has the focus.
    if (QAccessible::isActive() && hasPuzzle() && hasFocus())
        tell(QAccessible::queryAccessibleInterface(this), QAccessible::Focus);
    closeAnswerBox();
    tellCellsCameOrWent();
    update();
}

void BoardPage::tellCellsCameOrWent() {
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

void BoardPage::takeKeyboard() {
    setFocus();
    tellFocus();
}

void BoardPage::markSelectedCell() {
    update();
    tellFocus();
}

void BoardPage::tellFocus() {
    if (QAccessible::isActive())
        tell(QAccessible::queryAccessibleInterface(this)->focusChild(), QAccessible::Focus);
}

void BoardPage::focusInEvent(QFocusEvent* event) {
    DrawingSurface::focusInEvent(event);
    tellFocus();
}

QRect BoardPage::cellArea(int column, int row) const {
    const int cellWidth = static_cast<int>(m_state.cellWidth);
    return {m_state.boardLeft + (column - 1) * cellWidth, m_state.boardTop + (row - 1) * rowHeight,
            cellWidth + 1, rowHeight + 1};
}

void BoardPage::paintEvent(QPaintEvent* event) {
    DrawingSurface::paintEvent(event);
    if (!hasPuzzle())
        return;
    QPainter painter(this);
    // Inside the grid lines.
    constexpr int thickness = 2;
    const QRectF inside =
        QRectF(cellArea(m_state.selectedRow, m_state.selectedColumn)).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(QColor(0, 96, 224), thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(inside.adjusted(1, 1, -1, -1));
}

void BoardPage::fitAnswerBox(int cellWidth, const QStringList& numbers) {
    QFont font = boardFont();
    const QFontMetricsF metrics(font);
    qsizetype longest = 0;
    double widest = 0;
    for (const QString& number : numbers) {
        longest = std::max(longest, number.size());
        widest = std::max(widest, metrics.horizontalAdvance(number));
    }
    answerBox().resize(cellWidth + 1, 18);
    answerBox().setTypedLimit(static_cast<int>(longest));
    constexpr double startAndCursor = 3;
    const double room = answerBox().width() - startAndCursor;
    if (widest > room)
        font.setStretch(static_cast<int>(100 * room / widest));
    answerBox().setFont(font);
}

void BoardPage::openAnswerBox(int left, int top) {
    answerBox().clear();
    answerBox().setAccessibleName(
        QString("Row %1, column %2").arg(m_state.selectedColumn).arg(m_state.selectedRow));
    answerBox().move(left, top);
    answerBox().setEnabled(true);
    answerBox().show();
    answerBox().setFocus();
}

void BoardPage::closeAnswerBox() {
    answerBox().setEnabled(false);
    answerBox().hide();
    answerBox().clear();
}

void BoardPage::announce(const QString& news) {
    m_controls.news->setAccessibleName(news);
    if (QAccessible::isActive())
        tell(QAccessible::queryAccessibleInterface(m_controls.news), QAccessible::ObjectShow);
}

void BoardPage::tellCellChanged() {
    if (QAccessible::isActive())
        tell(QAccessible::queryAccessibleInterface(this)->focusChild(), QAccessible::NameChanged);
}

} // namespace quarvelle
