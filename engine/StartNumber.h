#pragma once

namespace quarvelle {

class RandomSource;
struct ProgramState;

/// Draws a `startNumber` for the next square: `baseStart` plus a random whole number. The numbers to draw
/// from are those that keep the last number below 10 to the power `maxDigits`, or only the first
/// `randomStarts` of them where that is fewer. Does nothing where `randomStarts` has no value; otherwise
/// takes one draw, or two in the second case. Where `baseStart` leaves no room, the number drawn may lie
/// below it: order 5 from 75 on in steps of 1 may begin with 74. `startNumber` is `baseStart` where the
/// square would have numbers that could be taken for blanks.
void drawStartNumber(ProgramState& state, RandomSource& random);

} // namespace quarvelle
