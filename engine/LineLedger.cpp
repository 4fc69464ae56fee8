#include "engine/LineLedger.h"

namespace quarvelle {

namespace {

/// The only order with five-cell shapes: one of each family around each cell.
constexpr int shapeOrder = 5;
constexpr int familyCount = shapeFamilies.size();
static_assert(shapeOrder * (wholeLineKinds + familyCount * shapeOrder) <= wholeLineKinds * maxOrder);

/// The offset from the anchor of the centre of a five-cell kind: the mean of the five cells, the anchor's own
/// offset being zero.
Step shapeCentre(int kind) {
    Cell sum;
    for (const Step offset : shapeOffsets(kind))
        sum = sum + offset;
    return {sum.row / 5, sum.column / 5};
}

/// Which of the n lines of a whole-line kind, 1 to n, holds the cell: what its step leaves the same.
int wholeLineIndex(int kind, Cell cell, int n) {
    switch (kind) {
    case 1:
        return cell.column;
    case 2:
        return cell.row;
    case 3:
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
    const int family = (kind - wholeLineKinds - 1) / kindsPerFamily;
    const auto [row, column] = wrapped(cell + shapeCentre(kind), n);
    return static_cast<std::size_t>((wholeLineKinds + family * n + row - 1) * n + column - 1);
}

bool LineLedger::accepts(int kind, Cell cell) const {
    // Every line through the cell would need the new blank; if the new blank's own line needs one of them,
    // the two would wait for each other.
    const LineSet& needs = line(kind, cell).needs;
    for (int other = 1; other <= m_kinds; ++other)
        if (needs[numberOf(other, cell)])
            return false;
    return true;
}

void LineLedger::place(int kind, Cell cell) {
    LineSet through;
    for (int other = 1; other <= m_kinds; ++other) {
        const std::size_t number = numberOf(other, cell);
        through.set(number);
        ++m_lines[number].blanks;
    }
    const std::size_t giving = numberOf(kind, cell);
    m_lines[giving].givesBlank = true;
    LineSet gained = m_lines[giving].needs;
    gained.set(giving);
    for (std::size_t number = 0; number < m_lines.size(); ++number) {
        Line& affected = m_lines[number];
        if (through[number] || (affected.needs & through).any())
            affected.needs |= gained;
    }
}

} // namespace quarvelle
