#include "board/BoardGeometry.h"

#include <algorithm>
#include <cmath>

#include "engine/MagicArithmetic.h"
#include "engine/ProgramState.h"
#include "tests/support/UntilFailure.h"

namespace quarvelle::testing {

TEST(BoardGeometry, FollowsOrderAndNumbers) {
    // n, s, d, the width of a cell and how many fit across
    const std::tuple<std::int16_t, double, double, int, int> rows[] = {
        {29, 1, 1, 24, 29},        {31, 1, 1, 24, 31},    {5, -500, 58, 32, 5},  {5, -500, 100, 40, 5},
        {5, -0.3, 0.1, 32, 5},     {5, -2.4, 0.1, 32, 5}, {5, -1000, -1, 40, 5}, {29, 1, 1e14, 56, 13},
        {5, 1e200, -1e199, 72, 5}, {5, 1, 1e199, 64, 5},  {32749, 1, 1, 80, 9}};
    for (const auto& [n, s, d, cellWidth, columns] : rows | untilFailure) {
        SCOPED_TRACE(::testing::PrintToString(std::tuple(n, s, d)));
        ProgramState state;
        state.squareSize = n;
        state.startNumber = s;
        state.distance = d;
        const BoardGeometry board = boardGeometry(state);
        EXPECT_EQ(board.cellWidth, cellWidth);
        EXPECT_EQ(board.visibleColumns, columns);
        EXPECT_EQ(board.visibleRows, std::min<int>(n, 29));
        EXPECT_EQ(board.hasAllCells, columns == n && n <= 29);
        EXPECT_EQ(hasPlayableNumbers(state), std::fabs(d) < 1e199);
    }
}

} // namespace quarvelle::testing
