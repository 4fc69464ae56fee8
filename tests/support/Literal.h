#pragma once

#include "engine/EventQueue.h"
#include "engine/PropertyShapes.h"
#include "engine/Random.h"
#include "tests/support/Lines.h"

namespace quarvelle::testing {

/// The selection of blanks with no regard to time: every line is walked cell by cell, every check searches
/// all that it found. Says what the blanks must be for given draws, and when the draws and turns come.
struct Literal {
    ProgramState& s; ///< the state
    RandomSource& random;
    EventQueue& events;

    void selectBlanks() {
        std::fill_n(s.lineRejected.begin() + 1, 4, 0);
        s.placeIndex = s.attemptCount = 0;
        while (s.placeIndex < s.blankCount + 1) {
            events.yield();
            if (s.stopRequested == Request::stop)
                return;
            const bool scanIsDue = ++s.attemptCount > s.squareSize * s.squareSize;
            if (scanIsDue ? scan() : attempt())
                ++s.placeIndex;
            else if (scanIsDue)
                return;
        }
    }

    Cell candidate() const { return {s.anchorRow, s.anchorCol}; }
    void drawCandidate() {
        s.anchorRow = 1 + random.below(s.squareSize);
        s.anchorCol = 1 + random.below(s.squareSize);
    }

    Cell moved(Cell cell, Step step) const { return wrapped(cell + step, s.squareSize); }

    /// The cells of the line of `kind` through a cell, that cell first.
    Line line(int kind, Cell from) const {
        Line cells{from};
        if (kind > 4)
            for (const Step offset : shapeOffsets(kind))
                cells.push_back(moved(from, offset));
        while (std::ssize(cells) < (kind > 4 ? 5 : s.squareSize))
            cells.push_back(moved(cells.back(), wholeLineStep(kind)));
        return cells;
    }

    int modeOf(int kind) const {
        return kind < 5 ? PropertyMode::none : s.*propertyFamilies[(kind - 5) / 5].mode;
    }

    bool takesPart(int kind) const {
        const auto [row, column] = candidate();
        if (kind <= 2)
            return s.mainDiagonalsAndLines == 1;
        if (kind <= 4)
            return s.allDiagonals != 0 || (s.mainDiagonalsAndLines == 1 &&
                                           (kind == 3 ? row + column == s.squareSize + 1 : row == column));
        const auto fits = [this](Step step) { return moved(candidate(), step) == candidate() + step; };
        return modeOf(kind) == PropertyMode::all ||
               (modeOf(kind) == PropertyMode::onlyMain && std::ranges::all_of(shapeOffsets(kind), fits));
    }

    /// How many blanks the line holds; -1 when it takes no part or one of them is found through its kind.
    int blanksOn(int kind) const {
        if (!takesPart(kind))
            return -1;
        int blanks = 0;
        for (const Cell& cell : line(kind, candidate())) {
            if (cellAt(s.puzzle, cell) == blankMarker(kind))
                return -1;
            blanks += isBlank(cellAt(s.puzzle, cell));
        }
        return blanks;
    }

    int chooseKind() {
        int kind = 1 + random.below(4);
        for (int range = 6; const PropertyFamily& family : propertyFamilies) {
            if (s.*family.mode != PropertyMode::none)
                kind = 1 + random.below(range);
            range += 2;
        }
        if (kind > 4)
            kind = (kind - 3) / 2 * 5 + random.below(5);
        const bool isBest = s.difficulty < 3 || s.lineBlankCount[kind] == s.bestBlankCount;
        return s.lineUsable[kind] == 1 && isBest ? kind : chooseKind();
    }

    /// One random attempt; whether something was placed.
    bool attempt() {
        if (std::ranges::count(s.lineRejected, 1) == lineKindCount)
            s.lineRejected.fill(0);
        drawCandidate();
        s.stopRequested = Request::playing;
        s.lineUsable.fill(0);
        s.lineBlankCount.fill(0);
        s.bestBlankCount = 0;
        for (int kind = 1; kind <= lineKindCount && !isBlank(cellAt(s.puzzle, candidate())); ++kind) {
            const int blanks = blanksOn(kind);
            s.lineUsable[kind] = blanks >= 0;
            if (blanks >= s.bestBlankCount)
                s.lineBlankCount[kind] = s.bestBlankCount = blanks;
            // A line that takes no part counts as turned down where others of its sort do, kind 4 excepted.
            if (blanks < 0 && (takesPart(kind) || (kind == 3 && takesPart(4)) || modeOf(kind) != 0))
                s.lineRejected[kind] = 1;
        }
        if (std::ranges::count(s.lineUsable, 1) == 0 ||
            std::ranges::count(s.lineRejected, 1) == lineKindCount)
            return false;
        const int kind = chooseKind();
        if (s.placeIndex == 0) {
            s.probeKind = kind;
            std::tie(s.probeAnchorRow, s.probeAnchorCol) = std::tie(s.anchorRow, s.anchorCol);
        } else if (!placeThrough(kind)) {
            s.lineRejected[kind] = 1;
            return false;
        }
        s.lineRejected.fill(0);
        return true;
    }

    /// Places nothing on the root line, nor where a blank that the candidate needs would need the candidate.
    bool placeThrough(int kind) {
        if (blanksOn(kind) < 0 ||
            std::ranges::count(line(s.probeKind, {s.probeAnchorRow, s.probeAnchorCol}), candidate()) != 0)
            return false;
        s.lineKind = kind;
        makeblanks(s);
        if (s.blankAccepted == 1)
            cellAt(s.puzzle, candidate()) = blankMarker(kind);
        return s.blankAccepted == 1;
    }

    /// What a systematic scan tries at the candidate; whether something was placed.
    bool placeAnywhere() {
        if (isBlank(cellAt(s.puzzle, candidate())))
            return false;
        // A whole line has the cell at once; every property has its turn, and the last to place has it.
        for (int kind = 1; kind <= lineKindCount; ++kind)
            if ((kind < 5 || takesPart(3) || takesPart(4)) && placeThrough(kind))
                kind = kind < 5 ? lineKindCount : kind / 5 * 5 + 4;
        return isBlank(cellAt(s.puzzle, candidate()));
    }

    bool scan() {
        s.attemptCount = 0;
        drawCandidate();
        for (int cell = s.squareSize * s.squareSize; cell > 0 && s.placeIndex > 0; --cell) {
            if (placeAnywhere())
                return true;
            const Cell next = moved(candidate(), {1, s.anchorRow / s.squareSize});
            std::tie(s.anchorRow, s.anchorCol) = std::tie(next.row, next.column);
        }
        return false;
    }
};

} // namespace quarvelle::testing
