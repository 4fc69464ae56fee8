#pragma once

#include <string>
#include <string_view>

namespace quarvelle {

/// The decimal number that `text` begins with, 0 if it begins with none: optional sign, digits, optional
/// point and fraction (".5" and "5." count), optional exponent with digits. Leading blanks, line ends and
/// no-break spaces are skipped; the locale plays no part. Infinities, NaN, hexadecimal and values outside the
/// range of a double are not numbers.
double leadingNumber(std::string_view text);

/// The shortest decimal text of `value` rounded to 15 significant digits. Exponent form ("1.5E+16", at least
/// two exponent digits) from 1E+15 on and where more than 15 digits would follow the point. Negative zero is
/// "0". A value that is not finite is "{very large!}", which is longer than any readout takes.
std::string numberText(double value);

/// Length of `numberText(value)` in characters, the minus sign included.
int textLength(double value);

} // namespace quarvelle
