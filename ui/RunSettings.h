#pragma once

namespace quarvelle {

class MainPage;
class RandomSource;
struct ProgramState;

/// Replaces a number of random starting numbers below 1 by 2.
void tidyRandomStarts(const MainPage& page);

/// Rewrites the number boxes as the texts of the numbers they hold, replaces zeros where they make no sense,
/// and takes `startNumber` and a positive `distance` from them; a distance that isn't positive is kept out of
/// the state while an earlier positive one is there. Refreshes the readouts.
void readNumbers(ProgramState& state, MainPage& page);

/// Takes `blankCount`, at least 1, and `printCount` from their boxes.
void readCounts(ProgramState& state, const MainPage& page);

/// Draws a `startNumber` from `baseStart` on, as many as keep the last number below 10 to the power
/// `maxDigits`; where the box asks for fewer starting numbers than there are, among that many. One draw, or
/// two. Where hardly any but `baseStart` does, a number below it may be drawn: 74 where order 5 begins with
/// 75 in steps of 1. Keeps `baseStart` where the numbers drawn could be taken for blanks.
void drawStartNumber(ProgramState& state, const MainPage& page, RandomSource& random);

} // namespace quarvelle
