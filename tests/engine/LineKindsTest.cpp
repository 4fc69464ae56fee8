#include "engine/Construction.h"
#include "engine/LineLedger.h"
#include "engine/PropertyShapes.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {

/// Kinds 5 to 9 and 15 to 19, each by its four other cells; five kinds further on they are twice as large.
static const Step shapes[][4] = {
    {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}},   {{2, 0}, {2, 2}, {0, 2}, {1, 1}},
    {{-2, 0}, {-2, 2}, {0, 2}, {-1, 1}},    {{0, -2}, {2, -2}, {2, 0}, {1, -1}},
    {{0, -2}, {-2, -2}, {-2, 0}, {-1, -1}}, {{-1, 0}, {0, -1}, {1, 0}, {0, 1}},
    {{0, 1}, {0, 2}, {-1, 1}, {1, 1}},      {{1, 0}, {2, 0}, {1, -1}, {1, 1}},
    {{-1, 0}, {-2, 0}, {-1, -1}, {-1, 1}},  {{0, -1}, {0, -2}, {-1, -1}, {1, -1}}};

/// Where such a step of a kind leads a cursor in (20, 21) whose anchor is in (10, 12).
static Cell afterStep(int kind, int step) {
    constexpr Step wholeLines[] = {{1, 0}, {0, 1}, {1, -1}, {1, 1}};
    if (kind <= 4)
        return Cell{20, 21} + wholeLines[kind - 1];
    if (step < 0 || step > 4)
        return {20, 21};
    const auto [row, column] = step == 4 ? Step{} : shapes[(kind - 5) / 10 * 5 + (kind - 5) % 5][step];
    const int size = 1 + (kind - 5) / 5 % 2;
    return {10 + size * row, 12 + size * column};
}

TEST(LineKinds, AreSteppedThroughByTheirTable) {
    for (const int kind : std::views::iota(1, lineKindCount + 1) | untilFailure)
        for (const int step : std::views::iota(-1, 7) | untilFailure) {
            const auto s = stateOf(5, 1, 1);
            s->lineKind = s->probeKind = kind;
            s->stepIndex = step;
            s->anchorRow = s->probeAnchorRow = 10;
            s->anchorCol = s->probeAnchorCol = 12;
            s->curRow = s->probeRow = 20;
            s->curCol = s->probeCol = 21;
            findline2(*s);
            findline1(*s);
            EXPECT_TRUE((Cell{s->curRow, s->curCol} == afterStep(kind, step))) << kind << ' ' << step;
            // The probe takes the steps 0 and 2 of three arms of a cross-diagonal in the other order.
            const bool exchanges = kind < 15 && (kind - 5) % 5 > 1 && (step == 0 || step == 2);
            const Cell probe = kind <= 4 ? Cell{20, 21} : afterStep(kind, exchanges ? 2 - step : step);
            EXPECT_TRUE((Cell{s->probeRow, s->probeCol} == probe)) << kind << ' ' << step;
        }
}

/// The record and the ledger answer alike for a cell that is not blank, whatever its blank is found through.
static void expectSameAnswers(ProgramState& state, const LineLedger::Candidate& candidate) {
    for (const int kind : std::views::iota(1, lineKindCount + 1) | untilFailure) {
        state.lineKind = kind;
        makeblanks(state);
        EXPECT_EQ(state.blankAccepted, candidate.accepts(kind)) << "kind " << kind;
    }
    const PropertyProcedure procedures[] = {d1scross, d1scross2, d1scline, d1scline2};
    const auto byLedger = std::make_unique<ProgramState>(state),
               byCheck = std::make_unique<ProgramState>(state);
    for (const std::size_t family : std::views::iota(std::size_t{0}, std::size_t{4}) | untilFailure) {
        procedures[family](*byCheck);
        placeShape(*byLedger, propertyFamilies[family], [&](int kind) { return candidate.accepts(kind); });
        EXPECT_TRUE(byCheck->blankPlaced == byLedger->blankPlaced && byCheck->puzzle == byLedger->puzzle)
            << "family " << family;
        *byCheck = *byLedger = state;
    }
}

TEST(PropertyShapes, ArePlacedByTheCheckAsByTheLedger) {
    ScriptedRandom random;
    ScriptedEvents events;
    for (const int puzzle : std::views::iota(0, 40) | untilFailure) {
        const int mode = puzzle % 2 == 0 ? PropertyMode::onlyMain : PropertyMode::all;
        const auto state = stateOf(5, 1, 1, Difficulty::easy, {mode, mode, mode, mode});
        buildCompleteSquare(*state, random, events);
        LineLedger ledger(5);
        for (const int attempt : std::views::iota(0, 60) | untilFailure) {
            SCOPED_TRACE("puzzle " + std::to_string(puzzle) + ", attempt " + std::to_string(attempt));
            state->anchorRow = 1 + random.below(5);
            state->anchorCol = 1 + random.below(5);
            const Cell cell{state->anchorRow, state->anchorCol};
            if (isBlank(cellAt(state->puzzle, cell)))
                continue;
            expectSameAnswers(*state, ledger.candidate(cell));
            if (const int kind = 1 + random.below(lineKindCount); ledger.candidate(cell).accepts(kind)) {
                cellAt(state->puzzle, cell) = blankMarker(kind);
                ledger.place(kind, cell);
            }
        }
    }
}

} // namespace quarvelle::testing
