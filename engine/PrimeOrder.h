#pragma once

#include <string>

namespace quarvelle {

struct ProgramState;

/// The largest number that the prime test takes.
inline constexpr double maxPrimeEntry = 32767;

/// Whether `x` is an order: a prime from 5 to 32767. Trying divisors up to the square root is enough, since
/// of two factors one is no greater than it.
bool primetest(double x);

/// "(n by n)".
std::string orderByOrder(int n);

/// Steps `sizeEntry` by `step` (+1 or -1) to the next order and returns true. Leaves it alone and returns
/// false where the entry is negative, fractional or above 32767, or where no order follows in that direction.
bool stepToOrder(ProgramState& state, int step);

} // namespace quarvelle
