#pragma once

#include <QAccessibleWidget>
#include <unordered_map>

namespace quarvelle {

class BoardPage;

/// The board as assistive technology sees it. While there is a puzzle to be answered it is a table of n by n
/// cells, with rows and columns as on the screen, each named by its number or "blank"; the answer box comes
/// after them. At other times the table has no cells, and its name says in a sentence what is drawn.
class AccessibleBoard final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit AccessibleBoard(BoardPage& board);
    ~AccessibleBoard() override;

    /// Makes Qt use this class for boards, and describe pictures as graphics and news as notifications.
    static void install();

    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    int rowCount() const override { return order(); }
    int columnCount() const override { return order(); }
    QAccessibleInterface* cellAt(int row, int column) const override;
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QString rowDescription(int) const override { return {}; }
    QString columnDescription(int) const override { return {}; }
    int selectedCellCount() const override { return order() == 0 ? 0 : 1; }
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedRowCount() const override { return 0; }
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedRows() const override { return {}; }
    QList<int> selectedColumns() const override { return {}; }
    bool isRowSelected(int) const override { return false; }
    bool isColumnSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }

private:
    int order() const;
    QAccessibleInterface* selectedCell() const;
    void dropCells() const;

    BoardPage& m_board;
    mutable std::unordered_map<int, QAccessible::Id> m_cells; ///< those asked for, by row and column
};

} // namespace quarvelle
