#pragma once

namespace quarvelle {

struct ProgramState;

/// Free pixels above a board and left of it.
inline constexpr int boardMargin = 8;
/// Height of a board cell in pixels.
inline constexpr int rowHeight = 18;

/// The drawing area that a board has, its margin included, in pixels.
struct BoardLimits {
    int width;
    int height;
};

/// How the board shows a square.
struct BoardGeometry {
    int maxDigits;      ///< characters of the longer text of the first and the last number
    int digitWidth;     ///< characters that a cell has room for
    int cellWidth;      ///< pixels
    int visibleColumns; ///< columns that have room, at most n and at least two
    int visibleRows;    ///< rows that have room, at most n
    bool hasAllCells;   ///< the whole square fits into the limits
};

/// The geometry for order `n` with numbers from `s` on in steps of `d`. A cell is 24 pixels wide, or 8 for
/// each character above three; it has room for the longer end of the numbers, and for one character more
/// where negative and positive numbers mix and the positive end is as long as the negative one.
BoardGeometry boardGeometry(int n, double s, double d, BoardLimits limits);

/// That of the state's settings.
BoardGeometry boardGeometry(const ProgramState& state);

/// Writes the geometry of the state's settings into the state.
void measureBoard(ProgramState& state);

/// Whether some number of a square is negative, so that the others are set in a little.
bool hasNegativeNumbers(int n, double s, double d);

} // namespace quarvelle
