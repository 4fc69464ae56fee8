#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "engine/ProgramState.h"

namespace quarvelle::testing {

using Cell = std::pair<int, int>;
using Line = std::vector<Cell>;

inline auto& at(auto& grid, Cell cell) {
    return grid[cell.first][cell.second];
}

/// What takes part in a puzzle.
struct Options {
    int rows = 1;
    int diagonals = 1;
    int difficulty = Difficulty::challenging;
    std::array<int, 4> modes{}; ///< in the order of the kinds
};

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

/// The lines that a puzzle may be solved through, by its options alone.
inline std::set<Line> linesInPlay(const ProgramState& state) {
    const int n = state.squareSize;
    const bool rows = state.mainDiagonalsAndLines == 1;
    std::map<Cell, Line> wholeLines; // by sort and number
    std::set<Line> lines;
    const auto addShapes = [&](Cell centre, int mode, const Line& arms) {
        const auto onto = [n](int coordinate) { return (coordinate + n - 1) % n + 1; };
        Line line{centre};
        bool fits = true;
        for (const auto& [row, column] : arms) {
            line.emplace_back(onto(centre.first + row), onto(centre.second + column));
            fits = fits && line.back() == Cell(centre.first + row, centre.second + column);
        }
        if (mode == PropertyMode::all || (mode == PropertyMode::onlyMain && fits))
            lines.insert(line);
    };
    for (int row = 1; row <= n; ++row)
        for (int column = 1; column <= n; ++column) {
            const Cell cell(row, column);
            const int rising = (row + column) % n;
            const int falling = (row - column + n) % n;
            const std::pair<Cell, bool> whole[] = {
                {{1, row}, rows},
                {{2, column}, rows},
                {{3, rising}, state.allDiagonals || (rows && rising == 1)},
                {{4, falling}, state.allDiagonals || (rows && falling == 0)}};
            for (const auto& [name, takesPart] : whole)
                if (takesPart)
                    wholeLines[name].push_back(cell);
            addShapes(cell, state.crossDiagonalMode, {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}});
            addShapes(cell, state.scatteredCrossDiagonalMode, {{2, 2}, {2, -2}, {-2, 2}, {-2, -2}});
            addShapes(cell, state.crossLineMode, {{1, 0}, {-1, 0}, {0, 1}, {0, -1}});
            addShapes(cell, state.scatteredCrossLineMode, {{2, 0}, {-2, 0}, {0, 2}, {0, -2}});
        }
    for (const auto& [name, line] : wholeLines)
        lines.insert(line);
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
    const auto isOpen = [&puzzle](Cell cell) { return at(puzzle, cell) >= 1e200; };
    for (bool progress = true; progress;) {
        progress = false;
        for (const Line& line : lines) {
            if (std::count_if(line.begin(), line.end(), isOpen) != 1)
                continue;
            double& blank = at(puzzle, *std::find_if(line.begin(), line.end(), isOpen));
            blank = 0;
            double rest = total;
            for (const Cell& cell : line)
                rest -= at(puzzle, cell);
            blank = rest;
            progress = true;
        }
    }
}

} // namespace quarvelle::testing
