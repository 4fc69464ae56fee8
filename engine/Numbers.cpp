#include "engine/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace quarvelle {

namespace {

constexpr int significantDigits = 15;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits of a rounded number, with the point after the first, and the power of ten to multiply by.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

/// Rounds a finite magnitude to 15 digits and drops the zeros at the end; 0 keeps one digit.
Decimal roundedDecimal(double magnitude) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific,
                                   significantDigits - 1);
    const std::string_view text(buffer, end.ptr);
    const auto e = text.find('e');
    Decimal decimal;
    decimal.digits = text[0];
    decimal.digits += text.substr(2, e - 2);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    if (decimal.digits.empty())
        decimal.digits = "0";
    const char* exponent = text.data() + e + 1;
    if (*exponent == '+')
        ++exponent;
    std::from_chars(exponent, end.ptr, decimal.exponent);
    return decimal;
}

std::string exponentForm(const Decimal& decimal) {
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1)
        text += '.' + decimal.digits.substr(1);
    text += decimal.exponent < 0 ? "E-" : "E+";
    const std::string exponent = std::to_string(std::abs(decimal.exponent));
    return text + (exponent.size() < 2 ? "0" : "") + exponent;
}

std::string fixedForm(const Decimal& decimal) {
    const auto count = static_cast<int>(decimal.digits.size());
    const int point = decimal.exponent + 1;
    if (point <= 0)
        return "0." + std::string(static_cast<std::size_t>(-point), '0') + decimal.digits;
    if (point >= count)
        return decimal.digits + std::string(static_cast<std::size_t>(point - count), '0');
    return decimal.digits.substr(0, static_cast<std::size_t>(point)) + '.' +
           decimal.digits.substr(static_cast<std::size_t>(point));
}

/// What may come before a pasted number: white space and line ends, a no-break space and Unicode's own line
/// and paragraph separators, which Qt's boxes make of line ends.
constexpr std::array<std::string_view, 9> blanks{" ",  "\t",       "\n",           "\r",          "\v",
                                                 "\f", "\xC2\xA0", "\xE2\x80\xA8", "\xE2\x80\xA9"};

void skipBlanks(std::string_view& text) {
    const auto isNext = [&text](std::string_view blank) { return text.starts_with(blank); };
    const auto* blank = blanks.begin();
    while (blank != blanks.end()) {
        blank = std::find_if(blanks.begin(), blanks.end(), isNext);
        if (blank != blanks.end())
            text.remove_prefix(blank->size());
    }
}

} // namespace

double leadingNumber(std::string_view text) {
    skipBlanks(text);
    bool negative = false;
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    // from_chars would also take a second sign and the names of infinity and NaN.
    if (text.empty() || (!isDigit(text[0]) && text[0] != '.'))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc())
        return 0;
    return negative ? -value : value;
}

std::string numberText(double value) {
    if (!std::isfinite(value))
        return "{very large!}";
    const Decimal decimal = roundedDecimal(std::fabs(value));
    if (decimal.digits == "0")
        return "0";
    const int digitsAfterPoint = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
    const bool needsExponent = decimal.exponent >= significantDigits || digitsAfterPoint > significantDigits;
    return (value < 0 ? "-" : "") + (needsExponent ? exponentForm(decimal) : fixedForm(decimal));
}

int textLength(double value) {
    return static_cast<int>(numberText(value).size());
}

} // namespace quarvelle
