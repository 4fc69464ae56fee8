#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <ostream>
#include <set>
#include <utility>
#include <vector>

#include "engine/ProgramState.h"

namespace quarvelle::testing {

using Cell = std::pair<int, int>;
using Line = std::vector<Cell>;

inline double at(const Grid& grid, Cell cell) {
    return grid[static_cast<std::size_t>(cell.first)][static_cast<std::size_t>(cell.second)];
}

/// What takes part in a puzzle.
struct Options {
    int rows = 1;
    int diagonals = 1;
    int difficulty = Difficulty::challenging;
    std::array<int, 4> modes{}; ///< in the order of the kinds
};

inline std::ostream& operator<<(std::ostream& out, const Options& options) {
    const auto& [rows, diagonals, difficulty, modes] = options;
    return out << "rows " << rows << ", diagonals " << diagonals << ", difficulty " << difficulty
               << ", modes " << modes[0] << modes[1] << modes[2] << modes[3];
}

inline std::unique_ptr<ProgramState> stateOf(int n, const Options& options, double blanks) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    state->mainDiagonalsAndLines = options.rows;
    state->allDiagonals = options.diagonals;
    state->difficulty = options.difficulty;
    state->crossDiagonalMode = options.modes[0];
    state->scatteredCrossDiagonalMode = options.modes[1];
    state->crossLineMode = options.modes[2];
    state->scatteredCrossLineMode = options.modes[3];
    state->blankCount = blanks;
    return state;
}

/// Every choice for order 5, or of rows, diagonals and difficulty alone.
inline std::vector<Options> everyChoice(bool withModes) {
    std::vector<Options> choices;
    for (int m = 0; m < (withModes ? 81 : 1); ++m)
        for (int line = 0; line < 4; ++line)
            for (const int difficulty : {Difficulty::easy, Difficulty::challenging})
                choices.push_back({line & 1, line >> 1, difficulty, {m % 3, m / 3 % 3, m / 9 % 3, m / 27}});
    return choices;
}

/// The cells at the offsets from a cell, with wrap-around, in order.
inline Line lineAt(int n, Cell from, const Line& offsets) {
    const auto onto = [n](int coordinate) { return ((coordinate - 1) % n + n) % n + 1; };
    Line line;
    for (const auto& [row, column] : offsets)
        line.emplace_back(onto(from.first + row), onto(from.second + column));
    std::sort(line.begin(), line.end());
    return line;
}

/// The lines that a puzzle may be solved through, by its options alone, each with its cells in order.
inline std::set<Line> linesInPlay(const ProgramState& state) {
    const int n = state.squareSize;
    std::set<Line> lines;
    const auto addWhole = [&](Cell from, int rowStep, int columnStep) {
        Line offsets;
        for (int i = 0; i < n; ++i)
            offsets.emplace_back(i * rowStep, i * columnStep);
        lines.insert(lineAt(n, from, offsets));
    };
    for (int i = 1; i <= n; ++i) {
        if (state.mainDiagonalsAndLines) {
            addWhole({1, i}, 1, 0);
            addWhole({i, 1}, 0, 1);
        }
        if (state.allDiagonals || (state.mainDiagonalsAndLines && i == 1))
            addWhole({1, i}, 1, 1);
        if (state.allDiagonals || (state.mainDiagonalsAndLines && i == n))
            addWhole({1, i}, 1, -1);
    }
    const std::pair<int, Line> properties[] = {
        {state.crossDiagonalMode, {{0, 0}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}},
        {state.scatteredCrossDiagonalMode, {{0, 0}, {2, 2}, {2, -2}, {-2, 2}, {-2, -2}}},
        {state.crossLineMode, {{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}}},
        {state.scatteredCrossLineMode, {{0, 0}, {2, 0}, {-2, 0}, {0, 2}, {0, -2}}},
    };
    for (const auto& [mode, shape] : properties) {
        const int margin = mode == PropertyMode::all ? 0 : shape[1].first;
        for (int row = 1 + margin; mode != PropertyMode::none && row <= n - margin; ++row)
            for (int column = 1 + margin; column <= n - margin; ++column)
                lines.insert(lineAt(n, {row, column}, shape));
    }
    return lines;
}

inline std::set<Cell> blanksOf(const ProgramState& state) {
    std::set<Cell> blanks;
    for (int row = 1; row <= state.squareSize; ++row)
        for (int column = 1; column <= state.squareSize; ++column)
            if (at(state.puzzle, {row, column}) >= 1e200)
                blanks.emplace(row, column);
    return blanks;
}

/// Solves the puzzle the way a person does, as far as that goes: again and again a line with one blank gives
/// that blank. Uses only the numbers shown, the Magic Total and the lines in play.
inline void solve(Grid& puzzle, const std::set<Line>& lines, double total) {
    for (bool progress = true; progress;) {
        progress = false;
        for (const Line& line : lines) {
            double* blank = nullptr;
            int blanks = 0;
            double rest = total;
            for (const auto& [row, column] : line) {
                double& value = puzzle[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
                if (value < 1e200)
                    rest -= value;
                else if (++blanks == 1)
                    blank = &value;
            }
            if (blanks != 1)
                continue;
            *blank = rest;
            progress = true;
        }
    }
}

} // namespace quarvelle::testing
