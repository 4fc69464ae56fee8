#pragma once

#include <QImage>
#include <QString>
#include <vector>

namespace quarvelle::demo {

/// A board as it stands on a picture of the screen. Numbers are told by their rank, 0 to n*n - 1 from the
/// starting number on, so that adding them up is exact whatever the distance.
struct Board {
    static constexpr int blank = -1;

    int order = 0;
    QPoint corner;          ///< the outer corner of the grid, in pixels of the picture
    int cellWidth = 0;      ///< from grid line to grid line, in pixels
    std::vector<int> ranks; ///< row by row, `blank` where nothing is written

    int& at(int x, int y) { return ranks[static_cast<std::size_t>(y * order + x)]; }
};

/// A blank's place, counted from 0, and the rank that belongs there.
struct Answer {
    int x;
    int y;
    int rank;
};

/// Reads the board of `order` columns and rows that shows the numbers of `texts` (all n*n of the square, from
/// the first to the last). Throws std::runtime_error when there is no such board, or a cell shows anything
/// but one of them or nothing, or one stands there twice.
Board readBoard(const QImage& picture, int order, const std::vector<QString>& texts);

/// Fills the blanks one at a time, each as the last one open on a row, column, diagonal, broken diagonal or
/// (at 5 by 5) cross that must add up to the Magic Total, in the order in which they can be found. Throws
/// std::runtime_error when that leaves a blank open, or any line with another sum.
std::vector<Answer> solve(Board board);

} // namespace quarvelle::demo
