#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <ranges>
#include <set>
#include <vector>

#include "engine/Cells.h"

namespace quarvelle::testing {

/// `cases | untilFailure` ends once the running test has failed, so that one cause doesn't fail a hundred
/// cases.
inline constexpr auto untilFailure =
    std::views::take_while([](const auto&) { return !::testing::Test::HasFailure(); });

using Line = std::vector<Cell>;

/// `modes` are in the order of the kinds.
inline std::unique_ptr<ProgramState> stateOf(int n, int rows, int diagonals,
                                             int difficulty = Difficulty::challenging,
                                             std::array<int, 4> modes = {}) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    state->mainDiagonalsAndLines = rows;
    state->allDiagonals = diagonals;
    state->difficulty = difficulty;
    std::tie(state->crossDiagonalMode, state->scatteredCrossDiagonalMode, state->crossLineMode,
             state->scatteredCrossLineMode) = std::tuple_cat(modes);
    return state;
}

/// The lines that a puzzle may be solved through, by its options alone, each with its cells in order.
inline std::set<Line> linesInPlay(const ProgramState& state) {
    const int n = state.squareSize;
    std::set<Line> lines;
    const auto add = [&](int mode, Cell from, const Line& offsets) {
        Line line;
        bool wraps = false;
        for (const auto& [down, right] : offsets) {
            const Cell cell{from.row + down, from.column + right};
            line.push_back({(cell.row + n - 1) % n + 1, (cell.column + n - 1) % n + 1});
            wraps = wraps || line.back() != cell;
        }
        std::ranges::sort(line);
        if (mode == PropertyMode::all || (mode == PropertyMode::onlyMain && !wraps))
            lines.insert(line);
    };
    const int whole = state.mainDiagonalsAndLines * PropertyMode::all;
    const int diagonal = std::max(state.mainDiagonalsAndLines, state.allDiagonals * PropertyMode::all);
    Line column, row, falling, rising;
    for (int i = 0; i < n; ++i) {
        column.push_back({i, 0});
        row.push_back({0, i});
        falling.push_back({i, i});
        rising.push_back({-i, i});
    }
    for (int i = 1; i <= n; ++i) {
        add(whole, {1, i}, column);
        add(whole, {i, 1}, row);
        add(diagonal, {i, 1}, falling);
        add(diagonal, {i, 1}, rising);
        for (int k = 1; k <= n; ++k) {
            add(state.crossDiagonalMode, {i, k}, {{0, 0}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}});
            add(state.scatteredCrossDiagonalMode, {i, k}, {{0, 0}, {2, 2}, {2, -2}, {-2, 2}, {-2, -2}});
            add(state.crossLineMode, {i, k}, {{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}});
            add(state.scatteredCrossLineMode, {i, k}, {{0, 0}, {2, 0}, {-2, 0}, {0, 2}, {0, -2}});
        }
    }
    return lines;
}

/// Fails unless every line has the total and all numbers differ.
inline void expectComplete(const Grid& square, int n, double total) {
    std::set<double> numbers;
    const auto lines = linesInPlay(*stateOf(n, 1, 1));
    for (const Line& line : lines | untilFailure) {
        double sum = 0;
        for (const Cell& cell : line)
            sum += *numbers.insert(cellAt(square, cell)).first;
        EXPECT_NEAR(sum, total, 1e-6) << "the line from " << line[0].row << ", " << line[0].column;
    }
    EXPECT_EQ(std::ssize(numbers), n * n);
}

} // namespace quarvelle::testing
