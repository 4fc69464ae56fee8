#pragma once

namespace quarvelle {

class EventQueue;
class RandomSource;
struct ProgramState;

/// Builds one random complete square of order `squareSize` (a prime from 5 to 103) from `startNumber` and
/// `distance` in `square` and `puzzle`. Leaves the cells of both axes in entries 1 to 2n of `placedRow`,
/// `placedColumn` and `placedValue`, and the cursor and the anchor at the last cell filled. Returns early
/// when `stopRequested` is -1 after a yield, with the cells not reached empty in `square` and `puzzle`
/// untouched. It yields before each axis draw, at the start of each further block of n values and before each
/// cell of it.
///
/// Two axes run through the cell of relative value 1, each in a knight step of its own; the cell b steps
/// along the first and a steps along the second gets the sum of their values minus 1. Modulo a prime of at
/// least 5 no knight step is a multiple of the step of a row, a column or a diagonal. So along each of these
/// lines, broken ones too, either summand takes each of its values once: both are pandiagonal Latin squares,
/// and every line has the same sum. The two steps are independent modulo n, so the two Latin squares are
/// orthogonal and every number occurs once. Modulo 5 the steps of codes 1 and 4, and those of 2 and 3, are
/// multiples of each other, which is why order 5 draws from the codes 1 and 2 alone.
void buildCompleteSquare(ProgramState& state, RandomSource& random, EventQueue& events);

} // namespace quarvelle
