#pragma once

namespace quarvelle {

class RandomSource;
struct ProgramState;

/// Draws a `startNumber` from `baseStart` on, as many as keep the last number below 10 to the power
/// `maxDigits`; where `randomStarts` is fewer than there are, among that many. One draw, or two; none where
/// `randomStarts` has no number. Where hardly any but `baseStart` does, a number below it may be drawn: 74
/// where order 5 begins with 75 in steps of 1. Keeps `baseStart` where the numbers drawn could be taken for
/// blanks.
void drawStartNumber(ProgramState& state, RandomSource& random);

} // namespace quarvelle
