#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
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

inline int onto(int coordinate, int n) {
    return ((coordinate - 1) % n + n) % n + 1;
}

/// The n lines from row 1 or column 1 on in steps of (dr, dc), all of them or the one through (row, 1).
inline Line straightLine(int n, Cell from, int dr, int dc) {
    Line line;
    for (int i = 0; i < n; ++i)
        line.emplace_back(onto(from.first + i * dr, n), onto(from.second + i * dc, n));
    return line;
}

/// Every row, column and diagonal of order n, broken diagonals included.
inline std::vector<Line> completeLines(int n) {
    std::vector<Line> lines;
    for (int i = 1; i <= n; ++i)
        for (const Cell& step : {Cell{1, 0}, Cell{0, 1}, Cell{1, 1}, Cell{1, -1}})
            lines.push_back(
                straightLine(n, step.first == 0 ? Cell{i, 1} : Cell{1, i}, step.first, step.second));
    return lines;
}

/// The lines that a puzzle may be solved through, by its options alone.
inline std::vector<Line> linesInPlay(const ProgramState& state) {
    const int n = state.squareSize;
    std::vector<Line> lines;
    for (int i = 1; i <= n; ++i) {
        if (state.mainDiagonalsAndLines) {
            lines.push_back(straightLine(n, {1, i}, 1, 0));
            lines.push_back(straightLine(n, {i, 1}, 0, 1));
        }
        if (state.allDiagonals || (state.mainDiagonalsAndLines && i == 1))
            lines.push_back(straightLine(n, {1, i}, 1, 1));
        if (state.allDiagonals || (state.mainDiagonalsAndLines && i == n))
            lines.push_back(straightLine(n, {1, i}, 1, -1));
    }
    const struct {
        int mode, distance;
        bool diagonal;
    } shapes[] = {{state.crossDiagonalMode, 1, true},
                  {state.scatteredCrossDiagonalMode, 2, true},
                  {state.crossLineMode, 1, false},
                  {state.scatteredCrossLineMode, 2, false}};
    for (const auto& [mode, d, diagonal] : shapes)
        for (int row = 1; mode != 0 && row <= n; ++row)
            for (int column = 1; column <= n; ++column) {
                const bool inside = std::min(row, column) > d && std::max(row, column) <= n - d;
                if (mode == 1 && !inside)
                    continue;
                Line shape{{row, column}};
                const auto arms = diagonal ? Line{{d, d}, {d, -d}, {-d, d}, {-d, -d}}
                                           : Line{{d, 0}, {-d, 0}, {0, d}, {0, -d}};
                for (const Cell& arm : arms)
                    shape.emplace_back(onto(row + arm.first, n), onto(column + arm.second, n));
                lines.push_back(shape);
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

/// Solves the puzzle the way a person does: again and again a line with one blank gives that blank. Uses only
/// the numbers shown, the Magic Total and the lines in play. Returns the numbers found, in fewer cells than
/// there are blanks where it gets stuck.
inline std::map<Cell, double> solve(const ProgramState& state, double total) {
    std::set<Cell> open = blanksOf(state);
    std::map<Cell, double> found;
    const std::vector<Line> lines = linesInPlay(state);
    for (bool progress = true; progress;) {
        progress = false;
        for (const Line& line : lines) {
            const auto isOpen = [&](Cell cell) { return open.count(cell) != 0; };
            if (std::count_if(line.begin(), line.end(), isOpen) != 1)
                continue;
            double rest = total;
            for (const Cell& cell : line)
                if (!isOpen(cell))
                    rest -= found.count(cell) ? found[cell] : at(state.puzzle, cell);
            const Cell blank = *std::find_if(line.begin(), line.end(), isOpen);
            found[blank] = rest;
            open.erase(blank);
            progress = true;
        }
    }
    return found;
}

} // namespace quarvelle::testing
