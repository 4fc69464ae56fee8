#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/Random.h"
#include "engine/Stepping.h"

namespace quarvelle::testing {

/// The engine with no regard to time: every line is walked cell by cell, every check clears and searches its
/// queue. Says what a square and its blanks must be for given draws, and when the draws and turns come.
class Literal {
public:
    Literal(ProgramState& state, RandomSource& random, EventQueue& events)
        : s(state), m_random(random), m_events(events) {}

    void buildCompleteSquare() {
        const int n = s.squareSize;
        for (int row = 1; row <= n; ++row)
            std::fill_n(s.square[at(row)].begin() + 1, n, emptyMarker);
        s.placedRow.fill(0);
        s.placedColumn.fill(0);
        s.placedValue.fill(0);
        drawCell();
        toAnchor();
        recordAxisCell(1, 1);
        if (!layAxes() || !fillBlocks())
            return;
        for (int column = 1; column <= n; ++column)
            for (int row = 1; row <= n; ++row) {
                double& cell = cellAt(s.square, row, column);
                cell = cellAt(s.puzzle, row, column) = s.startNumber + s.distance * (cell - 1);
            }
    }

    void makeblanks() {
        const int candidateRow = s.anchorRow, candidateCol = s.anchorCol;
        s.blankAccepted = 0;
        toAnchor();
        const auto room = at(s.squareSize * s.squareSize + 2);
        m_queueRow.assign(room, -1);
        m_queueCol.assign(room, -1);
        m_queueKind.assign(room, -1);
        for (int length = 0, head = 0;;) {
            const bool onLine = step();
            if (!onLine) {
                const auto next = at(++head);
                if (m_queueKind[next] < 0) {
                    s.blankAccepted = 1;
                    break;
                }
                s.anchorRow = m_queueRow[next];
                s.anchorCol = m_queueCol[next];
                s.lineKind = m_queueKind[next];
                toAnchor();
            }
            if (s.curRow == candidateRow && s.curCol == candidateCol)
                break;
            const double value = cellAt(s.puzzle, s.curRow, s.curCol);
            if (!onLine || value < emptyMarker)
                continue;
            std::size_t entry = 1;
            while (m_queueKind[entry] >= 0 &&
                   (m_queueRow[entry] != s.curRow || m_queueCol[entry] != s.curCol))
                ++entry;
            if (m_queueKind[entry] >= 0)
                continue;
            entry = at(++length);
            m_queueRow[entry] = s.curRow;
            m_queueCol[entry] = s.curCol;
            m_queueKind[entry] = markerKind(value);
        }
        s.anchorRow = candidateRow;
        s.anchorCol = candidateCol;
    }

    void selectBlanks() {
        std::fill_n(s.lineRejected.begin() + 1, 4, 0);
        s.placeIndex = 0;
        s.attemptCount = 0;
        do {
            if (stopped())
                return;
            const bool scanIsDue = ++s.attemptCount > s.squareSize * s.squareSize;
            if (scanIsDue ? scan() : attempt())
                ++s.placeIndex;
            else if (scanIsDue)
                return;
        } while (s.placeIndex < s.blankCount + 1);
    }

private:
    using Flags = std::array<int, lineKindCount + 1>;

    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    static bool all(const Flags& flags, int value) {
        return std::count(flags.begin() + 1, flags.end(), value) == lineKindCount;
    }

    bool stopped() {
        m_events.yield();
        return s.stopRequested == Request::stop;
    }

    int drawDirection() {
        const int direction = 1 + m_random.below(2);
        return s.squareSize > 5 ? 1 + m_random.below(4) : direction;
    }

    void recordAxisCell(int k, double value) {
        s.placedRow[at(k)] = s.curRow;
        s.placedColumn[at(k)] = s.curCol;
        s.placedValue[at(k)] = value;
        cellAt(s.square, s.curRow, s.curCol) = value;
    }

    bool layAxes() {
        const int n = s.squareSize;
        const Step steps[] = {{}, {1, 2}, {-1, 2}, {2, 1}, {-2, 1}};
        int direction = drawDirection();
        for (int k = 2; k <= 2 * n;) {
            if (stopped())
                return false;
            const int m = 2 + m_random.below(n - 1);
            const int first = k <= n ? 1 : n + 1;
            const double value = k <= n ? m : (m - 1) * n + 1;
            const auto axis = s.placedValue.begin() + first;
            if (std::count(axis, axis + n, value) != 0)
                continue;
            s.curRow = wrapped(s.curRow + steps[direction].row, n);
            s.curCol = wrapped(s.curCol + steps[direction].column, n);
            recordAxisCell(k, value);
            if (++k != n + 1)
                continue;
            toAnchor();
            recordAxisCell(n + 1, 1);
            for (const int taken = direction; direction == taken;)
                direction = drawDirection();
            k = n + 2;
        }
        return true;
    }

    bool fillBlocks() {
        const int n = s.squareSize;
        for (int k = n + 1, j = 1; k <= n * n; ++k) {
            if (stopped())
                return false;
            if ((k - 1) % n != 0) {
                const double previous = cellAt(s.square, s.curRow, s.curCol);
                s.curRow = wrapped(s.curRow + s.placedRow[at(j)] - s.placedRow[at(j - 1)], n);
                s.curCol = wrapped(s.curCol + s.placedColumn[at(j)] - s.placedColumn[at(j - 1)], n);
                cellAt(s.square, s.curRow, s.curCol) =
                    previous + s.placedValue[at(j)] - s.placedValue[at(j - 1)];
                ++j;
            } else {
                int i = n + 2;
                while (s.placedValue[at(i)] != k)
                    ++i;
                s.curRow = s.placedRow[at(i)];
                s.curCol = s.placedColumn[at(i)];
                j = 2;
            }
            s.anchorRow = s.curRow;
            s.anchorCol = s.curCol;
        }
        return true;
    }

    void drawCell() {
        s.anchorRow = 1 + m_random.below(s.squareSize);
        s.anchorCol = 1 + m_random.below(s.squareSize);
    }

    void toAnchor() {
        s.curRow = s.anchorRow;
        s.curCol = s.anchorCol;
        s.stepIndex = 0;
    }

    /// One step along the line of `lineKind`; false when it leads back to the anchor.
    bool step() {
        findline2(s);
        ++s.stepIndex;
        s.curRow = wrapped(s.curRow, s.squareSize);
        s.curCol = wrapped(s.curCol, s.squareSize);
        return s.curRow != s.anchorRow || s.curCol != s.anchorCol;
    }

    /// Walks the line of `kind` through the anchor, counts its blanks in `blanksOnShape` and stops at a
    /// marker of that kind. Returns whether there is one.
    bool lineHolds(int kind) {
        s.lineKind = kind;
        s.blanksOnShape = 0;
        toAnchor();
        do {
            const double value = cellAt(s.puzzle, s.curRow, s.curCol);
            if (value == blankMarker(kind))
                return true;
            if (value >= emptyMarker)
                ++s.blanksOnShape;
        } while (step());
        return false;
    }

    bool onMain(int kind) const {
        return kind == 3 ? s.anchorRow + s.anchorCol == s.squareSize + 1 : s.anchorRow == s.anchorCol;
    }

    bool diagonalsTakePart() const {
        return s.allDiagonals != 0 || (s.mainDiagonalsAndLines == 1 && (onMain(3) || onMain(4)));
    }

    bool fits(int kind, int mode) {
        s.lineKind = kind;
        for (s.stepIndex = 0; mode != PropertyMode::all && s.stepIndex < 4; ++s.stepIndex) {
            findline2(s);
            if (std::min(s.curRow, s.curCol) < 1 || std::max(s.curRow, s.curCol) > s.squareSize)
                return false;
        }
        return true;
    }

    /// A line that doesn't take part counts as turned down.
    void rateLine(int kind, bool takesPart = true) {
        if (takesPart && !lineHolds(kind)) {
            s.lineUsable[at(kind)] = 1;
            if (s.blanksOnShape >= s.bestBlankCount)
                s.lineBlankCount[at(kind)] = s.bestBlankCount = s.blanksOnShape;
        } else {
            s.lineRejected[at(kind)] = 1;
        }
        s.blanksOnShape = 0;
    }

    void rate() {
        if (s.mainDiagonalsAndLines == 1) {
            rateLine(1);
            rateLine(2);
        }
        if (diagonalsTakePart()) {
            rateLine(3, s.allDiagonals != 0 || onMain(3));
            if (s.allDiagonals != 0 || onMain(4))
                rateLine(4);
        }
        const auto modes = propertyModes();
        for (int kind = 5; kind <= 24; ++kind)
            if (const int mode = modes[at((kind - 5) / 5)]; mode != PropertyMode::none)
                rateLine(kind, fits(kind, mode));
    }

    /// Those of the kinds 5 to 9, 10 to 14, 15 to 19 and 20 to 24.
    std::array<int, 4> propertyModes() const {
        return {s.crossDiagonalMode, s.scatteredCrossDiagonalMode, s.crossLineMode, s.scatteredCrossLineMode};
    }

    int chooseKind() {
        for (;;) {
            int d = 1 + m_random.below(4);
            int range = 4;
            for (const int mode : propertyModes()) {
                range += 2;
                if (mode != PropertyMode::none)
                    d = 1 + m_random.below(range);
            }
            int kind = d;
            if (d > 4)
                kind = 5 * ((d - 3) / 2) + m_random.below(5);
            if (s.lineUsable[at(kind)] == 1 &&
                (s.difficulty < 3 || s.lineBlankCount[at(kind)] == s.bestBlankCount))
                return kind;
        }
    }

    bool liesOnRootLine() {
        s.probeRow = s.probeAnchorRow;
        s.probeCol = s.probeAnchorCol;
        s.stepIndex = 0;
        do {
            if (s.probeRow == s.anchorRow && s.probeCol == s.anchorCol)
                return true;
            if (s.probeKind <= 4) {
                s.probeRow += wholeLineStep(s.probeKind).row;
                s.probeCol += wholeLineStep(s.probeKind).column;
            }
            findline1(s);
            ++s.stepIndex;
            s.probeRow = wrapped(s.probeRow, s.squareSize);
            s.probeCol = wrapped(s.probeCol, s.squareSize);
        } while (s.probeRow != s.probeAnchorRow || s.probeCol != s.probeAnchorCol);
        return false;
    }

    /// One random attempt; whether something was placed.
    bool attempt() {
        if (all(s.lineRejected, 1))
            s.lineRejected.fill(0);
        drawCell();
        s.stopRequested = Request::playing;
        s.lineUsable.fill(0);
        s.lineBlankCount.fill(0);
        s.blanksOnShape = s.bestBlankCount = 0;
        if (cellAt(s.puzzle, s.anchorRow, s.anchorCol) >= emptyMarker)
            return false;
        rate();
        if (all(s.lineUsable, 0) || all(s.lineRejected, 1))
            return false;
        const int kind = chooseKind();
        if (s.placeIndex != 0) {
            s.lineKind = kind;
            s.blankAccepted = 0;
            if (!liesOnRootLine())
                makeblanks();
            if (s.blankAccepted != 1) {
                s.lineRejected[at(kind)] = 1;
                return false;
            }
            cellAt(s.puzzle, s.anchorRow, s.anchorCol) = blankMarker(kind);
        } else {
            s.probeKind = kind;
            s.probeAnchorRow = s.anchorRow;
            s.probeAnchorCol = s.anchorCol;
        }
        s.lineRejected.fill(0);
        return true;
    }

    bool placeThrough(int kind) {
        if (lineHolds(kind))
            return false;
        s.lineKind = kind;
        makeblanks();
        if (s.blankAccepted == 1)
            cellAt(s.puzzle, s.anchorRow, s.anchorCol) = blankMarker(kind);
        return s.blankAccepted == 1;
    }

    /// Through the first of the five kinds that can be.
    void placeThroughShape(int firstKind, int mode) {
        for (int kind = firstKind; kind < firstKind + 5; ++kind)
            if (fits(kind, mode) && placeThrough(kind)) {
                s.blankPlaced = 1;
                return;
            }
    }

    /// What a systematic scan tries at the anchor; whether something was placed.
    bool placeAnywhere() {
        if (liesOnRootLine() || cellAt(s.puzzle, s.anchorRow, s.anchorCol) >= emptyMarker)
            return false;
        if (s.mainDiagonalsAndLines == 1 && (placeThrough(1) || placeThrough(2)))
            return true;
        if (!diagonalsTakePart())
            return false;
        for (const int kind : {3, 4})
            if ((s.allDiagonals != 0 || onMain(kind)) && placeThrough(kind))
                return true;
        s.blankPlaced = 0;
        int firstKind = 0;
        for (const int mode : propertyModes()) {
            firstKind += 5;
            if (mode != PropertyMode::none)
                placeThroughShape(firstKind, mode);
        }
        return s.blankPlaced == 1;
    }

    bool scan() {
        s.attemptCount = 0;
        drawCell();
        const int startRow = s.anchorRow, startCol = s.anchorCol;
        do {
            if (s.placeIndex == 0)
                return false;
            if (placeAnywhere())
                return true;
            if (++s.anchorRow > s.squareSize) {
                s.anchorRow = 1;
                s.anchorCol = wrapped(s.anchorCol + 1, s.squareSize);
            }
        } while (s.anchorRow != startRow || s.anchorCol != startCol);
        return false;
    }

    ProgramState& s;
    RandomSource& m_random;
    EventQueue& m_events;
    std::vector<int> m_queueRow, m_queueCol, m_queueKind; ///< from 1; kind -1 ends the queue
};

} // namespace quarvelle::testing
