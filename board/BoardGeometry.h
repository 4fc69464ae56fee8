#pragma once

namespace quarvelle {

struct ProgramState;

/// Free pixels above a board and to its left.
inline constexpr int boardMargin = 8;
/// Height of a board cell in pixels.
inline constexpr int rowHeight = 18;

/// The area that a board may cover, its margin included, in pixels.
struct BoardLimits {
    int width;
    int height;
};

/// How the board shows a square.
struct BoardGeometry {
    int maxDigits;      ///< characters of the longer text of the first and the last number
    int digitWidth;     ///< characters that a cell has room for
    int cellWidth;      ///< pixels
    int visibleColumns; ///< columns that have room, at most n; never fewer than two
    int visibleRows;    ///< rows that have room, at most n
    bool hasAllCells;   ///< the whole square fits into the limits
};

/// The geometry for order `n` with numbers from `s` on in steps of `d`. A cell has room for the longer of the
/// first and the last number, and for one more character where one of the two is negative and the positive
/// one has at least as long a text, since positive numbers are indented then. It is 8 pixels wide per
/// character, but never less than 24.
BoardGeometry boardGeometry(int n, double s, double d, BoardLimits limits);

/// The geometry for the state's settings.
BoardGeometry boardGeometry(const ProgramState& state);

/// Writes the geometry of the state's settings into the state.
void measureBoard(ProgramState& state);

/// Whether any number of a square is negative, so that the others are indented.
bool hasNegativeNumbers(int n, double s, double d);

} // namespace quarvelle
