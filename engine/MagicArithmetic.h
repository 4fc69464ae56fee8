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

/// Whether every number of the square is a finite one that can't be taken for a blank.
bool hasPlayableNumbers(const ProgramState& state);

} // namespace quarvelle
