#include "board/AccessibleBoard.h"

#include "board/BoardPage.h"
#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "widgets/PictureBox.h"

namespace quarvelle {

namespace {

/// One cell. Assistive technology counts rows and columns of a table from 0.
class AccessibleCell final : public QAccessibleInterface,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface {
public:
    AccessibleCell(BoardPage& board, Place place) : m_board(board), m_place(place) {}

    bool isValid() const override { return m_board.hasPuzzle(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&m_board); }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description && isValid() && m_board.isOnShadedLine(m_place))
            return "On the line shown";
        if (kind != QAccessible::Name || !isValid())
            return {};
        const double value = quarvelle::cellAt(m_board.state().puzzle, cellOf(m_place));
        return isBlank(value) ? QString("blank") : QString::fromStdString(numberText(value));
    }

    QRect rect() const override {
        const QRect area = m_board.shown(m_board.cellArea(m_place)).toRect();
        return {m_board.mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state = parent()->state();
        state.focusable = state.selectable = state.readOnly = true;
        state.selected = isSelected();
        state.focused = state.selected && m_board.hasFocus();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface*>(this);
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    bool isSelected() const override {
        return m_board.hasPuzzle() && selectedPlace(m_board.state()) == m_place;
    }
    int rowIndex() const override { return m_place.down - 1; }
    int columnIndex() const override { return m_place.across - 1; }
    int rowExtent() const override { return 1; }
    int columnExtent() const override { return 1; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    /// A press has the effect of a click in the middle of the cell.
    void doAction(const QString& name) override {
        const QPoint middle = m_board.cellArea(m_place).center();
        if (name == setFocusAction() && isValid())
            emit m_board.keyboardAsked(m_place);
        if (name == pressAction() && isValid())
            emit m_board.pressed(Qt::LeftButton, Qt::NoModifier, middle.x(), middle.y());
    }

private:
    BoardPage& m_board;
    Place m_place;
};

QAccessibleInterface* describe(const QString&, QObject* object) {
    if (auto* board = qobject_cast<BoardPage*>(object))
        return new AccessibleBoard(*board);
    if (auto* picture = qobject_cast<PictureBox*>(object))
        return new QAccessibleWidget(picture, QAccessible::Graphic);
    if (object->isWidgetType() && object->objectName() == "news")
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Notification);
    return nullptr;
}

/// Who hears of what happens next. Qt has one place for it in the whole process.
QAccessible::UpdateHandler& nextHandler() {
    static QAccessible::UpdateHandler handler = nullptr;
    return handler;
}

/// Passes on what happens, but not that a board with a puzzle has got the keyboard: Qt tells that of every
/// control, and the board has just told it of its cell.
void passOn(QAccessibleEvent* event) {
    const auto* board = qobject_cast<const BoardPage*>(event->object());
    if (event->type() == QAccessible::Focus && board != nullptr && board->hasPuzzle())
        return;
    QAccessible::installUpdateHandler(nextHandler());
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(passOn);
}

} // namespace

AccessibleBoard::AccessibleBoard(BoardPage& board)
    : QAccessibleWidget(&board, QAccessible::Table), m_board(board) {}

AccessibleBoard::~AccessibleBoard() {
    dropCells();
}

void AccessibleBoard::install() {
    QAccessible::installFactory(describe);
    const auto handler = QAccessible::installUpdateHandler(passOn);
    if (handler != passOn)
        nextHandler() = handler;
}

int AccessibleBoard::order() const {
    return m_board.hasPuzzle() ? m_board.state().squareSize : 0;
}

QString AccessibleBoard::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name)
        return QAccessibleWidget::text(kind);
    if (m_board.hasPuzzle())
        return QString("Puzzle of %1 by %1 cells").arg(m_board.state().squareSize);
    return m_board.drawing().items().empty() ? "Empty board" : "Sheet being printed";
}

void* AccessibleBoard::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int AccessibleBoard::childCount() const {
    return order() * order() + QAccessibleWidget::childCount();
}

QAccessibleInterface* AccessibleBoard::child(int index) const {
    const int n = order();
    if (index < 0 || n == 0 || index >= n * n)
        return QAccessibleWidget::child(index - n * n);
    return cellAt(index / n, index % n);
}

int AccessibleBoard::indexOfChild(const QAccessibleInterface* child) const {
    if (child->role() == QAccessible::Cell) {
        const auto* cell = static_cast<const AccessibleCell*>(child);
        return cell->rowIndex() * order() + cell->columnIndex();
    }
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + order() * order();
}

QAccessibleInterface* AccessibleBoard::childAt(int x, int y) const {
    const std::optional<Place> place =
        m_board.placeAt(m_board.drawingPixel(m_board.mapFromGlobal(QPoint(x, y))));
    return place && order() > 0 ? cellAt(place->down - 1, place->across - 1)
                                : QAccessibleWidget::childAt(x, y);
}

QAccessibleInterface* AccessibleBoard::focusChild() const {
    return m_board.hasFocus() && order() > 0 ? selectedCell() : QAccessibleWidget::focusChild();
}

QList<QAccessibleInterface*> AccessibleBoard::selectedCells() const {
    return order() > 0 ? QList{selectedCell()} : QList<QAccessibleInterface*>();
}

QAccessibleInterface* AccessibleBoard::selectedCell() const {
    const Place place = selectedPlace(m_board.state());
    return cellAt(place.down - 1, place.across - 1);
}

QAccessibleInterface* AccessibleBoard::cellAt(int row, int column) const {
    if (row < 0 || column < 0 || row >= order() || column >= order())
        return nullptr;
    const auto [cell, isNew] = m_cells.try_emplace(row * (maxOrder + 1) + column);
    if (isNew)
        cell->second =
            QAccessible::registerAccessibleInterface(new AccessibleCell(m_board, Place{column + 1, row + 1}));
    return QAccessible::accessibleInterface(cell->second);
}

void AccessibleBoard::modelChange(QAccessibleTableModelChangeEvent*) {
    dropCells();
}

void AccessibleBoard::dropCells() const {
    for (const auto& [index, id] : m_cells)
        QAccessible::deleteAccessibleInterface(id);
    m_cells.clear();
}

} // namespace quarvelle
