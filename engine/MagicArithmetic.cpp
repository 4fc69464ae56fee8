#include "engine/MagicArithmetic.h"

#include <algorithm>
#include <cmath>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"

namespace quarvelle {

namespace {

double lastNumber(const ProgramState& state) {
    return quarvelle::lastNumber(state.squareSize, state.startNumber, state.distance);
}

} // namespace

double magicTotal(int n, double s, double d) {
    // The grouping decides the last digits for a fractional distance.
    const double order = n;
    const double first = order * (order * (order - 1) / 2 + (order + 1) / 2);
    const double second = ((d - 1) * order) * (order * (order + 1) / 2 - (order + 1) / 2);
    const double third = (s - 1) * order;
    return (first + second) + third;
}

double lastNumber(int n, double s, double d) {
    return s + d * (static_cast<double>(n) * n - 1);
}

double realValue(double k, double s, double d) {
    return s + d * (k - 1);
}

std::string magicTotalCaption(const std::string& text) {
    return text.size() < 12 ? "Magic Total = " + text : "Magic Total is {very large!}";
}

std::string lastNumberCaption(int n, double s, double d) {
    const std::string text = numberText(lastNumber(n, s, d));
    return text.size() < 8 ? "Last number equals: " + text : "Last number is {very large!}";
}

bool hasNegativeNumbers(const ProgramState& state) {
    return state.startNumber < 0 || lastNumber(state) < 0;
}

int longestEndText(const ProgramState& state) {
    return std::max(textLength(lastNumber(state)), textLength(state.startNumber));
}

int cellCharacters(const ProgramState& state) {
    const int longest = longestEndText(state);
    if (!hasNegativeNumbers(state))
        return longest;
    const double first = state.startNumber;
    const double last = lastNumber(state);
    // When neither end is positive there is nothing to line up with the negative numbers: 0 is shorter than
    // 100.
    double positiveEnd = 0;
    double negativeEnd = 100;
    if (first > 0) {
        positiveEnd = first;
        negativeEnd = last;
    }
    if (last > 0) {
        positiveEnd = last;
        negativeEnd = first;
    }
    return textLength(positiveEnd) >= textLength(negativeEnd) ? longest + 1 : longest;
}

int cellWidthFor(int digitWidth) {
    return digitWidth > 3 ? 8 * digitWidth : 24;
}

bool hasPlayableNumbers(const ProgramState& state) {
    // The numbers of the square lie between its two ends.
    return std::fabs(state.startNumber) < emptyMarker && std::fabs(lastNumber(state)) < emptyMarker;
}

bool boardIsTooLarge(ProgramState& state) {
    state.digitWidth = cellCharacters(state);
    state.cellWidth = cellWidthFor(state.digitWidth);
    return 8 + state.squareSize * state.cellWidth > state.boardWidthLimit ||
           8 + state.squareSize * rowHeight > state.boardHeightLimit;
}

} // namespace quarvelle
