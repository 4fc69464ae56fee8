#include "engine/PrimeOrder.h"

#include <cmath>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"

namespace quarvelle {

bool primetest(double x) {
    if (!(x >= 5 && x <= maxPrimeEntry) || x != std::floor(x))
        return false;
    const int candidate = static_cast<int>(x);
    for (int divisor = static_cast<int>(std::sqrt(x)); divisor > 1; --divisor)
        if (candidate % divisor == 0)
            return false;
    return true;
}

std::string orderByOrder(int n) {
    const std::string order = numberText(n);
    return "(" + order + " by " + order + ")";
}

bool stepToOrder(ProgramState& state, int step) {
    const double entry = state.sizeEntry;
    if (!(entry >= 0 && entry <= maxPrimeEntry) || entry != std::floor(entry))
        return false;
    for (double order = entry + step; order >= 0 && order <= maxPrimeEntry; order += step) {
        if (primetest(order)) {
            state.sizeEntry = order;
            return true;
        }
    }
    return false;
}

} // namespace quarvelle
