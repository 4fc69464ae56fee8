#include "engine/MagicArithmetic.h"

#include <cmath>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"

namespace quarvelle {

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

bool hasPlayableNumbers(const ProgramState& state) {
    // The numbers of the square lie between its two ends.
    const double last = lastNumber(state.squareSize, state.startNumber, state.distance);
    return std::fabs(state.startNumber) < emptyMarker && std::fabs(last) < emptyMarker;
}

} // namespace quarvelle
