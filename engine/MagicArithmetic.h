#pragma once

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace quarvelle {

struct ProgramState;

/// The numbers of squares that begin with `s` and go on in steps of `d`, as worked out in decimals.
///
/// A double holds most decimals only approximately: -0.3 + 3 * 0.1 gives 5.6E-17 where a person finds 0. So
/// where both numbers can be written without an exponent, they are counted in units of their last decimal
/// place. These counts are whole numbers, exact in a double up to 2^53, and one division at the end gives the
/// double nearest to the decimal. Whole numbers come out as in plain arithmetic, which also does wherever
/// this is not possible.
class SquareNumbers {
public:
    SquareNumbers(double s, double d);

    /// The number that stands for relative value `k`, from 1 on: s + d(k - 1).
    double realValue(double k) const { return sum(1, k - 1, m_first + m_step * (k - 1)); }

    /// The number that stands for relative value n*n; the largest when d is positive.
    double lastNumber(int n) const { return realValue(static_cast<double>(n) * n); }

    /// The sum of some numbers of the square.
    double sumOf(const std::vector<double>& numbers) const;

    /// The common sum of every row, column, diagonal and broken diagonal of a complete square of order `n`.
    /// The n rows share the sum of all its numbers equally, so it is a row's n*s + d*n(n*n - 1)/2.
    double magicTotal(int n) const;

private:
    /// Up to 2^53 a double holds every whole number.
    static constexpr double exactLimit = 9007199254740992;

    /// `firsts` times s plus `steps` times d, both whole; `plain` where a double can't hold the units.
    double sum(double firsts, double steps, double plain) const {
        if (!m_units)
            return plain;
        const double first = firsts * m_units->first;
        const double rest = steps * m_units->step;
        return std::fabs(first) + std::fabs(rest) <= exactLimit ? (first + rest) / m_units->scale : plain;
    }

    /// Both numbers, counted in units of their last decimal place.
    struct Units {
        double scale; ///< units to 1, a power of ten
        double first;
        double step;
    };

    double m_first;
    double m_step;
    std::optional<Units> m_units; ///< where both can be written without an exponent
};

/// The same for the square of order `n` from `s` on in steps of `d`.
double magicTotal(int n, double s, double d);
double lastNumber(int n, double s, double d);

/// "Magic Total = " and `text`, or the very-large caption when `text` has 12 characters or more.
std::string magicTotalCaption(const std::string& text);

/// "Last number equals: " and the text of the last number, or the very-large caption from 8 characters on.
std::string lastNumberCaption(int n, double s, double d);

/// Why a square can't be practised or printed.
enum class NumberFault {
    none,
    tooLarge, ///< a number is 1e200 or more in magnitude, and could be taken for a blank
    alike,    ///< two numbers have the same text
};

/// What is wrong with the numbers of the state's square. Above order 101 (`maxBatchOrder`), which is neither
/// practised nor printed, `alike` is not looked for.
NumberFault numberFault(const ProgramState& state);

/// Whether nothing is.
bool hasPlayableNumbers(const ProgramState& state);

} // namespace quarvelle
