#include <gtest/gtest.h>

#include "engine/LineKinds.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"

namespace quarvelle {
namespace {

using testing::Cell;

TEST(LineKinds, StepAndMarkAsListed) {
    const struct {
        int kind, stepIndex;
        Cell anchor, mainAfter, probeAfter;
    } rows[] = {
        {3, 0, {1, 1}, {2, 0}, {1, 1}},  {2, 0, {4, 5}, {4, 6}, {4, 5}},  {7, 0, {3, 3}, {1, 3}, {3, 5}},
        {7, 2, {3, 3}, {3, 5}, {1, 3}},  {12, 0, {5, 1}, {1, 1}, {5, 5}}, {13, 2, {1, 5}, {5, 5}, {1, 1}},
        {9, 3, {4, 4}, {3, 3}, {3, 3}},  {16, 1, {2, 2}, {2, 4}, {2, 4}}, {20, 4, {2, 2}, {2, 2}, {2, 2}},
        {24, 7, {2, 2}, {4, 4}, {4, 4}}, {4, 0, {5, 5}, {6, 6}, {5, 5}},  {6, 0, {1, 1}, {3, 1}, {3, 1}},
        {8, 0, {1, 3}, {1, 1}, {3, 3}},  {10, 0, {3, 3}, {1, 1}, {1, 1}}, {14, 0, {5, 5}, {5, 1}, {1, 5}},
        {11, 0, {1, 1}, {5, 1}, {5, 1}}, {15, 0, {2, 2}, {1, 2}, {1, 2}},
    };
    for (const auto& row : rows) {
        ProgramState state;
        state.lineKind = state.probeKind = row.kind;
        state.stepIndex = row.stepIndex;
        std::tie(state.anchorRow, state.anchorCol) = row.anchor;
        std::tie(state.probeAnchorRow, state.probeAnchorCol) = row.anchor;
        const Cell cursor = row.kind <= wholeLineKinds ? row.anchor : Cell{4, 4};
        std::tie(state.curRow, state.curCol) = cursor;
        std::tie(state.probeRow, state.probeCol) = cursor;
        findline2(state);
        findline1(state);
        EXPECT_EQ(Cell(state.curRow, state.curCol), row.mainAfter) << row.kind;
        EXPECT_EQ(Cell(state.probeRow, state.probeCol), row.probeAfter) << row.kind;
        EXPECT_EQ(blankMarker(row.kind), std::stod("1e" + std::to_string(199 + row.kind)));
        EXPECT_EQ(markerKind(blankMarker(row.kind)), row.kind);
    }
}

} // namespace
} // namespace quarvelle
