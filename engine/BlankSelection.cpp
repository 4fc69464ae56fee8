#include "engine/BlankSelection.h"

#include <algorithm>
#include <cassert>

#include "engine/EventQueue.h"
#include "engine/LineLedger.h"
#include "engine/LinesInPlay.h"
#include "engine/PropertyShapes.h"
#include "engine/Random.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

bool allAre(const std::array<int, lineKindCount + 1>& flags, int value) {
    return std::all_of(flags.begin() + 1, flags.end(), [value](int flag) { return flag == value; });
}

/// Chooses the blanks of one square. The candidate is the state's anchor; the ledger always agrees with the
/// markers in `puzzle`.
class Selection {
public:
    Selection(ProgramState& state, RandomSource& random)
        : m_state(state), m_random(random), m_ledger(state.squareSize) {}

    /// Rates a random cell and places a blank there, or the root. Returns whether it did.
    bool attemptRandomCell();

    /// Tries every cell once, from a random one on. Returns whether a blank was placed.
    bool scanAllCells();

private:
    Cell candidate() const { return {m_state.anchorRow, m_state.anchorCol}; }
    double& candidateCell() { return cellAt(m_state.puzzle, candidate()); }
    void drawCandidate();
    bool takesPart(int kind) const;
    bool diagonalsTakePart() const;
    void rateLine(int kind);
    void rateLines();
    int chooseKind();
    void placeRoot(int kind);
    bool placeBlank(int kind);
    bool placeThroughLine(int kind);
    bool placeThroughShape();
    bool placeAtCandidate();

    ProgramState& m_state;
    RandomSource& m_random;
    LineLedger m_ledger;
    CellSet m_root; ///< the root line, which stays complete
};

void Selection::drawCandidate() {
    m_state.anchorRow = 1 + m_random.below(m_state.squareSize);
    m_state.anchorCol = 1 + m_random.below(m_state.squareSize);
}

bool Selection::takesPart(int kind) const {
    return isInPlay(m_state, kind, candidate());
}

bool Selection::diagonalsTakePart() const {
    return takesPart(WholeLine::antiDiagonal) || takesPart(WholeLine::diagonal);
}

/// Rates the whole line of `kind` through the candidate: usable unless it gives a blank already.
void Selection::rateLine(int kind) {
    const auto k = static_cast<std::size_t>(kind);
    if (m_ledger.givesBlank(kind, candidate())) {
        m_state.lineRejected[k] = 1;
        return;
    }
    m_state.lineUsable[k] = 1;
    const int blanks = m_ledger.blanksOn(kind, candidate());
    if (blanks >= m_state.bestBlankCount)
        m_state.lineBlankCount[k] = m_state.bestBlankCount = blanks;
}

void Selection::rateLines() {
    m_state.lineUsable.fill(0);
    m_state.lineBlankCount.fill(0);
    m_state.bestBlankCount = 0;
    if (isBlank(candidateCell()))
        return;
    if (m_state.mainDiagonalsAndLines == 1) {
        rateLine(WholeLine::column);
        rateLine(WholeLine::row);
    }
    if (diagonalsTakePart()) {
        // Of the diagonals through the candidate that don't take part, only the anti-diagonal counts as
        // rejected.
        if (takesPart(WholeLine::antiDiagonal))
            rateLine(WholeLine::antiDiagonal);
        else
            m_state.lineRejected[WholeLine::antiDiagonal] = 1;
        if (takesPart(WholeLine::diagonal))
            rateLine(WholeLine::diagonal);
    }
    for (const PropertyFamily& family : propertyFamilies)
        if (m_state.*family.mode != PropertyMode::none)
            rateShape(m_state, family);
}

/// Draws kinds until one is usable and, in challenging puzzles, its line has the most blanks. There is a
/// usable kind with that count, so this ends.
int Selection::chooseKind() {
    for (;;) {
        int drawn = 1 + m_random.below(wholeLineKinds);
        int range = wholeLineKinds;
        for (const PropertyFamily& family : propertyFamilies) {
            range += 2;
            if (m_state.*family.mode != PropertyMode::none)
                drawn = 1 + m_random.below(range);
        }
        int kind = drawn;
        if (drawn > wholeLineKinds) {
            const auto family = static_cast<std::size_t>((drawn - wholeLineKinds - 1) / 2);
            kind = propertyFamilies[family].firstKind + m_random.below(kindsPerFamily);
        }
        const auto k = static_cast<std::size_t>(kind);
        if (m_state.lineUsable[k] == 1 && (m_state.difficulty < Difficulty::challenging ||
                                           m_state.lineBlankCount[k] == m_state.bestBlankCount))
            return kind;
    }
}

/// The first line chosen becomes the root; the candidate itself stays filled.
void Selection::placeRoot(int kind) {
    m_state.probeKind = kind;
    m_state.probeAnchorRow = m_state.anchorRow;
    m_state.probeAnchorCol = m_state.anchorCol;
    walkLine(kind, candidate(), m_state.squareSize, [this](Cell cell) {
        m_root.insert(cell);
        return true;
    });
}

/// Blanks the candidate through its line of `kind` if the puzzle stays solvable.
bool Selection::placeBlank(int kind) {
    if (m_root.contains(candidate()) || !m_ledger.candidate(candidate()).accepts(kind))
        return false;
    candidateCell() = blankMarker(kind);
    m_ledger.place(kind, candidate());
    return true;
}

bool Selection::attemptRandomCell() {
    if (allAre(m_state.lineRejected, 1))
        m_state.lineRejected.fill(0);
    drawCandidate();
    m_state.stopRequested = Request::playing;
    rateLines();
    if (allAre(m_state.lineUsable, 0) || allAre(m_state.lineRejected, 1))
        return false;
    const int kind = chooseKind();
    if (m_state.placeIndex == 0) {
        placeRoot(kind);
    } else if (!placeBlank(kind)) {
        m_state.lineRejected[static_cast<std::size_t>(kind)] = 1;
        return false;
    }
    m_state.lineRejected.fill(0);
    return true;
}

bool Selection::placeThroughLine(int kind) {
    return !m_ledger.givesBlank(kind, candidate()) && placeBlank(kind);
}

/// A later property overwrites the marker of an earlier one, so the ledger is told only after the last.
bool Selection::placeThroughShape() {
    m_state.blankPlaced = 0;
    const LineLedger::Candidate asked = m_ledger.candidate(candidate());
    for (const PropertyFamily& family : propertyFamilies)
        if (m_state.*family.mode != PropertyMode::none)
            placeShape(m_state, family, [&asked](int kind) { return asked.accepts(kind); });
    if (m_state.blankPlaced == 1)
        m_ledger.place(markerKind(candidateCell()), candidate());
    return m_state.blankPlaced == 1;
}

bool Selection::placeAtCandidate() {
    if (m_root.contains(candidate()) || isBlank(candidateCell()))
        return false;
    if (m_state.mainDiagonalsAndLines == 1 &&
        (placeThroughLine(WholeLine::column) || placeThroughLine(WholeLine::row)))
        return true;
    // A cell on no diagonal that takes part is not tried for the properties either.
    if (!diagonalsTakePart())
        return false;
    for (const int kind : {WholeLine::antiDiagonal, WholeLine::diagonal})
        if (takesPart(kind) && placeThroughLine(kind))
            return true;
    return placeThroughShape();
}

bool Selection::scanAllCells() {
    m_state.attemptCount = 0;
    drawCandidate();
    if (m_state.placeIndex == 0)
        return false;
    const int n = m_state.squareSize;
    for (int cell = 0; cell < n * n; ++cell) {
        if (placeAtCandidate())
            return true;
        if (++m_state.anchorRow > n) {
            m_state.anchorRow = 1;
            m_state.anchorCol = wrapped(m_state.anchorCol + 1, n);
        }
    }
    return false;
}

} // namespace

void selectBlanks(ProgramState& state, RandomSource& random, EventQueue& events) {
    assert(state.squareSize == shapeOrder || std::ranges::all_of(propertyFamilies, [&](const auto& family) {
               return state.*family.mode == PropertyMode::none;
           }));
    Selection selection(state, random);
    std::fill_n(state.lineRejected.begin() + 1, wholeLineKinds, 0);
    state.placeIndex = 0;
    state.attemptCount = 0;
    do {
        bool placed = false;
        while (!placed) {
            events.yield();
            if (state.stopRequested == Request::stop)
                return;
            ++state.attemptCount;
            if (state.attemptCount <= state.squareSize * state.squareSize)
                placed = selection.attemptRandomCell();
            else if (!(placed = selection.scanAllCells()))
                return;
        }
        ++state.placeIndex;
    } while (!(state.placeIndex >= state.blankCount + 1));
}

} // namespace quarvelle
