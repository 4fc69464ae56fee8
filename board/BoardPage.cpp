#include "board/BoardPage.h"

#include <QAccessible>
#include <QPainter>
#include <algorithm>

#include "board/BoardGeometry.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"

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
}

void BoardPage::beginPuzzle() {
    clearLine();
    tellCellsCameOrWent();
}

void BoardPage::endPuzzle() {
    clearLine();
    // If the box were hidden while it has the keyboard, no control would have it.
    if (window()->focusWidget() == &answerBox())
        setFocus();
    // The focus must not stay on a cell that is about to go.
    else if (QAccessible::isActive() && hasFocus())
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

void BoardPage::markSelectedCell() {
    update();
    tellFocus();
}

/// Tells that the selected cell has the keyboard, if the board has it.
void BoardPage::tellFocus() {
    if (QAccessible::isActive() && hasPuzzle() && hasFocus())
        tell(QAccessible::queryAccessibleInterface(this)->focusChild(), QAccessible::Focus);
}

void BoardPage::focusInEvent(QFocusEvent* event) {
    DrawingSurface::focusInEvent(event);
    tellFocus();
}

/// Where the keyboard is on the page: at the selected cell.
QVariant BoardPage::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query != Qt::ImCursorRectangle)
        return DrawingSurface::inputMethodQuery(query);
    return hasPuzzle() ? shown(cellArea(selectedPlace(m_state))).toRect() : QRect();
}

void BoardPage::makeRoomFor(const QRect& content) {
    PageScale::setPageSize(*this, QSize(content.right(), content.bottom()) + QSize(1, 1) +
                                      QSize(boardMargin, boardMargin));
}

QRect BoardPage::cellArea(Place place) const {
    const int cellWidth = static_cast<int>(m_state.cellWidth);
    return {m_state.boardLeft + (place.across - 1) * cellWidth,
            m_state.boardTop + (place.down - 1) * rowHeight, cellWidth + 1, rowHeight + 1};
}

std::optional<Place> BoardPage::placeAt(QPoint pixel) const {
    const QPoint inside = pixel - QPoint(m_state.boardLeft, m_state.boardTop);
    const int cellWidth = static_cast<int>(m_state.cellWidth);
    const int n = m_state.squareSize;
    if (!QRect(0, 0, n * cellWidth, n * rowHeight).contains(inside))
        return {};
    return Place{inside.x() / cellWidth + 1, inside.y() / rowHeight + 1};
}

void BoardPage::fitAnswerBox(int cellWidth, const QStringList& numbers, const AnswerBox::Insets& insets) {
    qsizetype longest = 0;
    for (const QString& number : numbers)
        longest = std::max(longest, number.size());
    answerBox().setTypedLimit(static_cast<int>(longest));
    PageScale::setPlace(answerBox(), {PageScale::placeOf(answerBox()).topLeft(), QSize(cellWidth + 1, 18)});
    m_controls.Text6->setInsets(insets);
}

void BoardPage::openAnswerBox() {
    const Place place = selectedPlace(m_state);
    answerBox().setProgramText({});
    answerBox().setAccessibleName(QString("Row %1, column %2").arg(place.down).arg(place.across));
    PageScale::setPlace(answerBox(), {QPoint(m_state.selectedCellX, m_state.selectedCellY),
                                      PageScale::placeOf(answerBox()).size()});
    answerBox().setEnabled(true);
    answerBox().show();
    answerBox().setFocus();
    update();
}

void BoardPage::closeAnswerBox() {
    answerBox().setEnabled(false);
    answerBox().hide();
    answerBox().setProgramText({});
    update();
}

void BoardPage::shadeLine(std::vector<Place> line) {
    m_line = std::move(line);
    update();
}

void BoardPage::clearLine() {
    shadeLine({});
}

bool BoardPage::isOnShadedLine(Place place) const {
    return std::find(m_line.begin(), m_line.end(), place) != m_line.end();
}

/// Light enough for the numbers, with a bar that tells the line to whoever doesn't see the hue.
void BoardPage::paintLine(QPainter& painter, const PixelGrid& grid) const {
    const int bar = 2 * grid.thickness();
    painter.save();
    // What is drawn there shows through.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (const Place place : m_line) {
        const QRect inside = insideOf(place, grid);
        PixelGrid::fillDevice(painter, inside, QColor(176, 228, 184));
        PixelGrid::fillDevice(painter, inside.adjusted(0, inside.height() - bar, 0, 0), QColor(0, 110, 50));
    }
    painter.restore();
}

/// A cell without its grid lines, which stay visible around it, in pixels of the screen.
QRect BoardPage::insideOf(Place place, const PixelGrid& grid) const {
    return grid.betweenLines(cellArea(place).adjusted(1, 1, -1, -1));
}

void BoardPage::paintAbove(QPainter& painter) {
    const PixelGrid grid = PixelGrid::painted(painter, 1);
    paintLine(painter, grid);
    if (!hasPuzzle())
        return;
    const QRect inside = insideOf(selectedPlace(m_state), grid);
    if (answerBox().isVisible()) {
        PixelGrid::fillDevice(painter, inside, answerBox().palette().color(QPalette::Window));
        return;
    }
    const int across = inside.width() - 2 * grid.thickness();
    const int down = inside.height() - 2 * grid.thickness();
    for (const QRect& side : {inside.adjusted(0, 0, -across, 0), inside.adjusted(across, 0, 0, 0),
                              inside.adjusted(0, 0, 0, -down), inside.adjusted(0, down, 0, 0)})
        PixelGrid::fillDevice(painter, side, QColor(0, 96, 224));
}

void BoardPage::announce(const QString& news) {
    m_controls.news->setAccessibleName(news);
    if (QAccessible::isActive())
        tell(QAccessible::queryAccessibleInterface(m_controls.news), QAccessible::ObjectShow);
}

void BoardPage::tellCellChanged() {
    // Not the focused cell: there is none while another window has the keyboard.
    if (QAccessible::isActive())
        tell(QAccessible::queryAccessibleInterface(this)->tableInterface()->selectedCells().value(0),
             QAccessible::NameChanged);
}

} // namespace quarvelle
