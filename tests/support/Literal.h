#pragma once

#include "engine/EventQueue.h"
#include "engine/LinesInPlay.h"
#include "engine/PropertyShapes.h"
#include "engine/Random.h"
#include "engine/Stepping.h"
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

    /// The cells of the line of `kind` through a cell, that cell first.
    Line line(int kind, Cell from) const {
        Line cells;
        walkLine(kind, from, s.squareSize, [&](Cell cell) { return cells.push_back(cell), true; });
        return cells;
    }

    int modeOf(int kind) const {
        return kind < 5 ? PropertyMode::none : s.*propertyFamilies[(kind - 5) / 5].mode;
    }

    bool takesPart(int kind) const { return isInPlay(s, kind, candidate()); }

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

    bool isOnRootLine() const {
        return std::ranges::count(line(s.probeKind, {s.probeAnchorRow, s.probeAnchorCol}), candidate()) != 0;
    }

    /// Places nothing on the root line, nor where a blank that the candidate needs would need the candidate.
    bool placeThrough(int kind) {
        if (blanksOn(kind) < 0 || isOnRootLine())
            return false;
        s.lineKind = kind;
        makeblanks(s);
        if (s.blankAccepted == 1)
            cellAt(s.puzzle, candidate()) = blankMarker(kind);
        return s.blankAccepted == 1;
    }

    /// What a systematic scan tries at the candidate; whether something was placed.
    bool placeAnywhere() {
        if (isBlank(cellAt(s.puzzle, candidate())) || isOnRootLine())
            return false;
        // A whole line has the cell at once; every property has its turn, and the last to place has it.
        for (const int kind : {1, 2, 3, 4})
            if (placeThrough(kind))
                return true;
        const PropertyProcedure procedures[] = {d1scross, d1scross2, d1scline, d1scline2};
        for (int family = 0; family < 4 && (takesPart(3) || takesPart(4)); ++family)
            if (s.*propertyFamilies[family].mode != PropertyMode::none)
                procedures[family](s);
        return isBlank(cellAt(s.puzzle, candidate()));
    }

    bool scan() {
        s.attemptCount = 0;
        drawCandidate();
        for (int cell = s.squareSize * s.squareSize; cell > 0 && s.placeIndex > 0; --cell) {
            if (placeAnywhere())
                return true;
            const Cell next = wrapped(candidate() + Step{1, s.anchorRow / s.squareSize}, s.squareSize);
            std::tie(s.anchorRow, s.anchorCol) = std::tie(next.row, next.column);
        }
        return false;
    }
};

} // namespace quarvelle::testing
