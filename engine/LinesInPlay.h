#pragma once

#include <optional>
#include <vector>

#include "engine/LineKinds.h"

namespace quarvelle {

/// Whether the shape of a five-cell kind through `cell` is in play.
bool isShapeInPlay(const ProgramState& state, int kind, Cell cell);

/// Whether a puzzle may be solved through the line of `kind` through `cell`, by the state's options alone:
/// rows, columns and main diagonals, all diagonals, and at order 5 each shape in its mode ("Only Main" inside
/// the square, "All" around its edges).
inline bool isInPlay(const ProgramState& state, int kind, Cell cell) {
    if (kind > wholeLineKinds)
        return isShapeInPlay(state, kind, cell);
    if (kind == WholeLine::column || kind == WholeLine::row)
        return state.mainDiagonalsAndLines == 1;
    const bool isMain = kind == WholeLine::antiDiagonal ? cell.row + cell.column == state.squareSize + 1
                                                        : cell.row == cell.column;
    return state.allDiagonals != 0 || (state.mainDiagonalsAndLines == 1 && isMain);
}

/// The kinds of the lines in play through `blank`, a blank of `puzzle`, that have no other blank, in
/// ascending order. Such a line gives the blank: it is the Magic Total less the sum of the others. Reads
/// nothing but `puzzle` and the options, so it can't give an answer away. Costs the lines through one cell.
std::vector<int> kindsThatGive(const ProgramState& state, Cell blank);

/// The next blank after `from`, around the ends, that a line in play gives, `from` itself last; the first
/// index runs fastest. Nothing where there is no blank.
///
/// While a blank is left, there always is one. Each blank was placed to be found through the line in play
/// that its marker names, and needs the other blanks on it; this relation has no cycle, and right answers,
/// which only take blanks away, close none. So some blank needs no other.
std::optional<Cell> nextGivenBlank(const ProgramState& state, Cell from);

} // namespace quarvelle
