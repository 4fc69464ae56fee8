#pragma once

#include <bitset>
#include <vector>

#include "engine/LineKinds.h"

namespace quarvelle {

/// Records for every line of a puzzle what its blanks depend on, and so which cell may become the next blank.
/// A question looks only at the lines through one cell, whatever the order; placing a blank takes one pass
/// over all lines.
///
/// A line gives at most one blank: two that are both found through it would each need the other. So a line's
/// number stands for the blank it gives, and the dependence of blanks is a relation between lines: a line
/// needs those that give the other blanks on it. The ledger keeps the transitive closure of this relation.
/// The blanks can be found one at a time as long as it has no cycle, and a new blank can only close a cycle
/// through itself.
class LineLedger {
public:
    /// For a puzzle of order `n`, at most 103, without blanks.
    explicit LineLedger(int n);

    /// How many blanks lie on the line of `kind` through `cell`.
    int blanksOn(int kind, Cell cell) const { return line(kind, cell).blanks; }

    /// Whether a blank is to be found through the line of `kind` through `cell`.
    bool givesBlank(int kind, Cell cell) const { return line(kind, cell).givesBlank; }

    class Candidate;

    /// A cell that is not blank, to be asked about.
    Candidate candidate(Cell cell) const;

    /// Records the blank at `cell`, which must have been accepted for `kind`.
    void place(int kind, Cell cell);

private:
    /// Lines by number. Order 103 has the most, although only order 5 has shapes as well.
    using LineSet = std::bitset<std::size_t{wholeLineKinds} * maxOrder>;

    struct Line {
        int blanks = 0;          ///< cells on it that are blank
        bool givesBlank = false; ///< one of them is to be found through it
        LineSet needs;           ///< the lines that give its blanks, and all the lines that those need
    };

    std::size_t numberOf(int kind, Cell cell) const;
    LineSet linesThrough(Cell cell) const;
    const Line& line(int kind, Cell cell) const { return m_lines[numberOf(kind, cell)]; }

    int m_order;
    int m_kinds; ///< kinds 1 to this have a line through every cell
    std::vector<Line> m_lines;
};

/// What a ledger knows about one cell. The ledger outlives it and doesn't change meanwhile.
class LineLedger::Candidate {
public:
    Candidate(const LineLedger& ledger, Cell cell)
        : m_ledger(ledger), m_cell(cell), m_through(ledger.linesThrough(cell)) {}

    /// Whether the cell may become a blank that is found through its line of `kind`, so that all blanks can
    /// still be found one at a time; the same answer as that of `makeblanks`. Every line through the cell
    /// would need the new blank, so a cycle closes if the line that gives it needs one of them already.
    bool accepts(int kind) const { return (m_ledger.line(kind, m_cell).needs & m_through).none(); }

private:
    const LineLedger& m_ledger;
    Cell m_cell;
    LineSet m_through;
};

inline LineLedger::Candidate LineLedger::candidate(Cell cell) const {
    return {*this, cell};
}

} // namespace quarvelle
