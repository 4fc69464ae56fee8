#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "engine/Cells.h"
#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/Random.h"

namespace quarvelle::testing {

/// The engine with no regard to time: every line is walked cell by cell, every check searches all that it
/// found. Says what a square and its blanks must be for given draws, and when the draws and turns come.
class Literal {
public:
    Literal(ProgramState& state, RandomSource& random, EventQueue& events)
        : s(state), m_random(random), m_events(events) {}

    void buildCompleteSquare() {
        const int n = s.squareSize;
        const Step steps[] = {{}, {1, 2}, {-1, 2}, {2, 1}, {-2, 1}};
        s.placedRow.fill(0);
        s.placedColumn.fill(0);
        s.placedValue.fill(0);
        drawCandidate();
        int direction = 0;
        for (const int first : {1, n + 1}) {
            for (const int taken = direction; direction == taken;)
                direction = drawDirection();
            Cell cell = m_candidate;
            record(first, cell, 1);
            for (int entry = first + 1; entry < first + n;) {
                if (stopped())
                    return;
                const int number = 2 + m_random.below(n - 1);
                const double value = first == 1 ? number : (number - 1) * n + 1;
                if (std::count(s.placedValue.begin() + first, s.placedValue.begin() + entry, value) != 0)
                    continue;
                cell = moved(cell, steps[direction]);
                record(entry++, cell, value);
            }
        }
        for (int turn = n; turn < n * n; ++turn)
            if (stopped())
                return;
        for (std::size_t a = 1; a <= at(n); ++a)
            for (std::size_t b = at(n) + 1; b <= 2 * at(n); ++b) {
                const int row = wrapped(s.placedRow[a] + s.placedRow[b] - m_candidate.row, n);
                const int column = wrapped(s.placedColumn[a] + s.placedColumn[b] - m_candidate.column, n);
                const double value = s.placedValue[a] + s.placedValue[b] - 1;
                cellAt(s.square, row, column) = s.startNumber + s.distance * (value - 1);
            }
        s.puzzle = s.square;
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
    using Cell = quarvelle::Cell;
    using Flags = std::array<int, lineKindCount + 1>;

    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    static bool all(const Flags& flags, int value) {
        return std::count(flags.begin() + 1, flags.end(), value) == lineKindCount;
    }
    double valueAt(Cell cell) const { return cellAt(s.puzzle, cell.row, cell.column); }
    double& candidateCell() { return cellAt(s.puzzle, m_candidate.row, m_candidate.column); }

    bool stopped() {
        m_events.yield();
        return s.stopRequested == Request::stop;
    }

    int drawDirection() {
        const int direction = 1 + m_random.below(2);
        return s.squareSize > 5 ? 1 + m_random.below(4) : direction;
    }

    void drawCandidate() {
        m_candidate.row = 1 + m_random.below(s.squareSize);
        m_candidate.column = 1 + m_random.below(s.squareSize);
    }

    void record(int entry, Cell cell, double value) {
        s.placedRow[at(entry)] = cell.row;
        s.placedColumn[at(entry)] = cell.column;
        s.placedValue[at(entry)] = value;
    }

    Cell moved(Cell cell, Step step) const {
        return {wrapped(cell.row + step.row, s.squareSize), wrapped(cell.column + step.column, s.squareSize)};
    }

    /// The cells of the line of `kind` through a cell, that cell first.
    std::vector<Cell> line(int kind, Cell from) const {
        std::vector<Cell> cells{from};
        if (kind > 4)
            for (const Step offset : shapeOffsets(kind))
                cells.push_back(moved(from, offset));
        while (cells.size() < at(kind > 4 ? 5 : s.squareSize))
            cells.push_back(moved(cells.back(), wholeLineStep(kind)));
        return cells;
    }

    bool liesOnRootLine() const {
        const auto root = line(s.probeKind, {s.probeAnchorRow, s.probeAnchorCol});
        return std::find(root.begin(), root.end(), m_candidate) != root.end();
    }

    /// Of the kinds 5 to 9, 10 to 14, 15 to 19 and 20 to 24.
    std::array<int, 4> propertyModes() const {
        return {s.crossDiagonalMode, s.scatteredCrossDiagonalMode, s.crossLineMode, s.scatteredCrossLineMode};
    }

    int modeOf(int kind) const { return kind < 5 ? PropertyMode::none : propertyModes()[at(kind - 5) / 5]; }

    bool takesPart(int kind) const {
        if (kind <= 2)
            return s.mainDiagonalsAndLines == 1;
        const auto [row, column] = m_candidate;
        const int n = s.squareSize;
        if (kind <= 4)
            return s.allDiagonals != 0 ||
                   (s.mainDiagonalsAndLines == 1 && (kind == 3 ? row + column == n + 1 : row == column));
        const auto fits = [&, row = row, column = column](Step offset) {
            return std::min(row + offset.row, column + offset.column) >= 1 &&
                   std::max(row + offset.row, column + offset.column) <= n;
        };
        const auto& offsets = shapeOffsets(kind);
        return modeOf(kind) == PropertyMode::all ||
               (modeOf(kind) == PropertyMode::onlyMain && std::all_of(offsets.begin(), offsets.end(), fits));
    }

    /// How many blanks the line holds; -1 when one of them is found through a line of this kind.
    int blanksOn(int kind) {
        int blanks = 0;
        for (const Cell cell : line(kind, m_candidate)) {
            if (valueAt(cell) == blankMarker(kind))
                return -1;
            blanks += isBlank(valueAt(cell));
        }
        return blanks;
    }

    /// A line that does not take part counts as turned down where others of its sort do, kind 4 excepted.
    void rate(int kind) {
        const int blanks = takesPart(kind) ? blanksOn(kind) : -1;
        if (blanks >= 0) {
            s.lineUsable[at(kind)] = 1;
            if (blanks >= s.bestBlankCount)
                s.lineBlankCount[at(kind)] = s.bestBlankCount = blanks;
        } else if (takesPart(kind) || (kind == 3 && takesPart(4)) || modeOf(kind) != PropertyMode::none) {
            s.lineRejected[at(kind)] = 1;
        }
    }

    int chooseKind() {
        for (;;) {
            int drawn = 1 + m_random.below(4);
            int range = 4;
            for (const int mode : propertyModes()) {
                range += 2;
                if (mode != PropertyMode::none)
                    drawn = 1 + m_random.below(range);
            }
            const int kind = drawn <= 4 ? drawn : (drawn - 3) / 2 * 5 + m_random.below(5);
            if (s.lineUsable[at(kind)] == 1 &&
                (s.difficulty < 3 || s.lineBlankCount[at(kind)] == s.bestBlankCount))
                return kind;
        }
    }

    /// One random attempt; whether something was placed.
    bool attempt() {
        if (all(s.lineRejected, 1))
            s.lineRejected.fill(0);
        drawCandidate();
        s.stopRequested = Request::playing;
        s.lineUsable.fill(0);
        s.lineBlankCount.fill(0);
        s.bestBlankCount = 0;
        if (isBlank(candidateCell()))
            return false;
        for (int kind = 1; kind <= lineKindCount; ++kind)
            rate(kind);
        if (all(s.lineUsable, 0) || all(s.lineRejected, 1))
            return false;
        const int kind = chooseKind();
        if (s.placeIndex == 0) {
            s.probeKind = kind;
            s.probeAnchorRow = m_candidate.row;
            s.probeAnchorCol = m_candidate.column;
        } else if (!liesOnRootLine() && accepts(kind)) {
            candidateCell() = blankMarker(kind);
        } else {
            s.lineRejected[at(kind)] = 1;
            return false;
        }
        s.lineRejected.fill(0);
        return true;
    }

    /// Whether the candidate may become a blank that is found through `kind`: no blank that it needs needs
    /// it.
    bool accepts(int kind) const {
        std::vector<Cell> needed{m_candidate};
        for (std::size_t i = 0; i < needed.size(); ++i)
            for (const Cell cell : line(i == 0 ? kind : markerKind(valueAt(needed[i])), needed[i])) {
                if (i != 0 && cell == m_candidate)
                    return false;
                if (isBlank(valueAt(cell)) && std::find(needed.begin(), needed.end(), cell) == needed.end())
                    needed.push_back(cell);
            }
        return true;
    }

    bool placeThrough(int kind) {
        const bool places = takesPart(kind) && blanksOn(kind) >= 0 && accepts(kind);
        if (places)
            candidateCell() = blankMarker(kind);
        return places;
    }

    /// What a systematic scan tries at the candidate; whether something was placed.
    bool placeAnywhere() {
        if (liesOnRootLine() || isBlank(candidateCell()))
            return false;
        for (const int kind : {1, 2, 3, 4})
            if (placeThrough(kind))
                return true;
        if (!takesPart(3) && !takesPart(4))
            return false;
        // Every property has its turn, and the last to place has the cell.
        for (int firstKind = 5; firstKind <= lineKindCount; firstKind += 5)
            for (int kind = firstKind; kind < firstKind + 5 && !placeThrough(kind);)
                ++kind;
        return isBlank(candidateCell());
    }

    bool scan() {
        s.attemptCount = 0;
        drawCandidate();
        const Cell start = m_candidate;
        if (s.placeIndex == 0)
            return false;
        do {
            if (placeAnywhere())
                return true;
            m_candidate = moved(m_candidate, {1, m_candidate.row / s.squareSize});
        } while (m_candidate != start);
        return false;
    }

    ProgramState& s;
    RandomSource& m_random;
    EventQueue& m_events;
    Cell m_candidate; ///< or the cell of the first number
};

} // namespace quarvelle::testing
