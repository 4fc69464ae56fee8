#include "engine/MagicArithmetic.h"

#include <algorithm>
#include <utility>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"

namespace quarvelle {

namespace {

/// Ten to the power of the number of decimals of `value`; nothing if it has more than 15, the most that a
/// text without an exponent has.
std::optional<double> decimalScale(double value) {
    for (double scale = 1; scale <= 1e15; scale *= 10)
        if (std::round(value * scale) / scale == value)
            return scale;
    return {};
}

/// Whether two numbers of the state's square have the same text. `largest` is the magnitude of the largest.
bool hasAlikeNumbers(const ProgramState& state, double largest) {
    // Texts have 15 digits, so numbers of that magnitude lie at most 1e-14 of it apart in them.
    if (std::fabs(state.distance) > 2e-14 * largest)
        return false;
    // Texts follow the order of the numbers, so the same text can only come twice in a row.
    const SquareNumbers numbers(state.startNumber, state.distance);
    const int count = state.squareSize * state.squareSize;
    std::string last;
    for (int k = 1; k <= count; ++k) {
        std::string text = numberText(numbers.realValue(k));
        if (text == last)
            return true;
        last = std::move(text);
    }
    return false;
}

} // namespace

SquareNumbers::SquareNumbers(double s, double d) : m_first(s), m_step(d) {
    const std::optional<double> firstScale = decimalScale(s);
    const std::optional<double> stepScale = decimalScale(d);
    if (!firstScale || !stepScale)
        return;
    const double scale = std::max(*firstScale, *stepScale);
    m_units = {scale, std::round(s * *firstScale) * (scale / *firstScale),
               std::round(d * *stepScale) * (scale / *stepScale)};
}

double SquareNumbers::sumOf(const std::vector<double>& numbers) const {
    double plain = 0;
    double units = 0;
    for (const double number : numbers) {
        plain += number;
        units += m_units ? std::round(number * m_units->scale) : 0;
    }
    return m_units && std::fabs(units) <= exactLimit ? units / m_units->scale : plain;
}

double SquareNumbers::magicTotal(int n) const {
    const double order = n;
    const double first = order * (order * (order - 1) / 2 + (order + 1) / 2);
    const double second = ((m_step - 1) * order) * (order * (order + 1) / 2 - (order + 1) / 2);
    const double third = (m_first - 1) * order;
    return sum(order, order * (order * order - 1) / 2, (first + second) + third);
}

double magicTotal(int n, double s, double d) {
    return SquareNumbers(s, d).magicTotal(n);
}

double lastNumber(int n, double s, double d) {
    return SquareNumbers(s, d).lastNumber(n);
}

std::string magicTotalCaption(const std::string& text) {
    return text.size() < 12 ? "Magic Total = " + text : "Magic Total is {very large!}";
}

std::string lastNumberCaption(int n, double s, double d) {
    const std::string text = numberText(lastNumber(n, s, d));
    return text.size() < 8 ? "Last number equals: " + text : "Last number is {very large!}";
}

NumberFault numberFault(const ProgramState& state) {
    const int n = state.squareSize;
    const double largest =
        std::max(std::fabs(state.startNumber), std::fabs(lastNumber(n, state.startNumber, state.distance)));
    // All other numbers lie between the first and the last.
    if (!(largest < emptyMarker))
        return NumberFault::tooLarge;
    return n <= maxBatchOrder && hasAlikeNumbers(state, largest) ? NumberFault::alike : NumberFault::none;
}

bool hasPlayableNumbers(const ProgramState& state) {
    return numberFault(state) == NumberFault::none;
}

} // namespace quarvelle
