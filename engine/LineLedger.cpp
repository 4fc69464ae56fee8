#include "engine/LineLedger.h"

namespace quarvelle {

namespace {

/// One shape of each family around each cell.
constexpr int familyCount = shapeFamilies.size();
static_assert(shapeOrder * (wholeLineKinds + familyCount * shapeOrder) <= wholeLineKinds * maxOrder);

/// Which of the n lines of a whole-line kind holds the cell, from 1 to n: the quantity that the kind's step
/// doesn't change.
int wholeLineIndex(int kind, Cell cell, int n) {
    switch (kind) {
    case WholeLine::column:
        return cell.column;
    case WholeLine::row:
        return cell.row;
    case WholeLine::antiDiagonal:
        return wrapped(cell.row + cell.column, n);
    default:
        return wrapped(cell.row - cell.column, n);
    }
}

} // namespace

LineLedger::LineLedger(int n) : m_order(n), m_kinds(n == shapeOrder ? lineKindCount : wholeLineKinds) {
    const int shapes = n == shapeOrder ? familyCount * n * n : 0;
    m_lines.resize(static_cast<std::size_t>(wholeLineKinds * n + shapes));
}

/// Whole lines first, by kind; then shapes by family and centre, since the five kinds of a family are one
/// shape seen from its five cells.
std::size_t LineLedger::numberOf(int kind, Cell cell) const {
    const int n = m_order;
    if (kind <= wholeLineKinds)
        return static_cast<std::size_t>((kind - 1) * n + wholeLineIndex(kind, cell, n) - 1);
    const auto [row, column] = wrapped(cell + centreOffset(kind), n);
    return static_cast<std::size_t>((wholeLineKinds + familyOf(kind) * n + row - 1) * n + column - 1);
}

LineLedger::LineSet LineLedger::linesThrough(Cell cell) const {
    LineSet lines;
    for (int kind = 1; kind <= m_kinds; ++kind)
        lines.set(numberOf(kind, cell));
    return lines;
}

void LineLedger::place(int kind, Cell cell) {
    const LineSet through = linesThrough(cell);
    const std::size_t giving = numberOf(kind, cell);
    m_lines[giving].givesBlank = true;
    LineSet gained = m_lines[giving].needs;
    gained.set(giving);
    for (std::size_t number = 0; number < m_lines.size(); ++number) {
        Line& affected = m_lines[number];
        affected.blanks += through[number];
        if (through[number] || (affected.needs & through).any())
            affected.needs |= gained;
    }
}

} // namespace quarvelle
