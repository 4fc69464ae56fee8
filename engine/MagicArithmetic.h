#pragma once

#include <string>

namespace quarvelle {

struct ProgramState;

/// The common sum of every row, column, diagonal and broken diagonal of a complete square of order `n` that
/// is filled with s, s + d, ..., s + (n*n - 1)d: the sum of all its numbers over n, n*s + d*n(n*n - 1)/2.
double magicTotal(int n, double s, double d);

/// The number that belongs to relative value n*n; the largest when `d` is positive.
double lastNumber(int n, double s, double d);

/// The number that stands for relative value `k` (1 to n*n) in a square from `s` in steps of `d`.
double realValue(double k, double s, double d);

/// "Magic Total = " and `text`, or the very-large caption when `text` has 12 characters or more.
std::string magicTotalCaption(const std::string& text);

/// "Last number equals: " and the text of the last number, or the very-large caption from 8 characters on.
std::string lastNumberCaption(int n, double s, double d);

/// Whether some number of the square is negative, so that the others are set in a little.
bool hasNegativeNumbers(const ProgramState& state);

/// Characters of the longer text of the first and the last number.
int longestEndText(const ProgramState& state);

/// Characters that a cell needs: `longestEndText`, and one more when negative and positive numbers mix and
/// the positive end is as long as the negative one.
int cellCharacters(const ProgramState& state);

/// Width of a board cell in pixels for numbers of `digitWidth` characters: 24, or 8 a character above three.
int cellWidthFor(int digitWidth);

/// Whether every number of the square is a finite one that can't be taken for a blank.
bool hasPlayableNumbers(const ProgramState& state);

/// Height of a board cell in pixels.
inline constexpr int rowHeight = 18;

/// Whether a board of the current size and numbers is too wide or too tall for the drawing area. Sets
/// `digitWidth` and `cellWidth`.
bool boardIsTooLarge(ProgramState& state);

} // namespace quarvelle
