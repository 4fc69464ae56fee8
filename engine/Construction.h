#pragma once

namespace quarvelle {

class EventQueue;
class RandomSource;
struct ProgramState;

/// Builds one random complete square of order `squareSize` (a prime from 5 to 103) from `startNumber` and
/// `distance` into `square` and `puzzle`, and leaves the axis record in entries 1 to 2n of `placedRow`,
/// `placedColumn` and `placedValue`, and the cursor and the anchor at the last cell filled. Returns early
/// when `stopRequested` is -1 after a yield, with the cells not reached empty in `square` and `puzzle`
/// untouched. One yield comes before each axis draw, one at the start of each further block of n values and
/// one before each cell of it.
///
/// Two axes run through the cell of relative value 1 in two knight steps; the cell b steps along the first
/// and a steps along the second gets the sum of their values. Both summands are Latin squares under
/// wrap-around in which every row, column and broken diagonal meets each value once, because no knight step,
/// nor its sum or difference with another, is a multiple of a line's own step modulo a prime of at least 5;
/// so all these lines have the same sum.
void buildCompleteSquare(ProgramState& state, RandomSource& random, EventQueue& events);

} // namespace quarvelle
