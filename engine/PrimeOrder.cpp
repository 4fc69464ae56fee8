#include "engine/PrimeOrder.h"

#include <cmath>

#include "engine/ProgramState.h"

namespace quarvelle {

bool primetest(ProgramState& state, double x) {
    if (!(x >= 5 && x <= maxPrimeEntry) || x != std::floor(x))
        return false;
    const int candidate = static_cast<int>(x);
    state.testDivisor = static_cast<int>(std::sqrt(x));
    while (state.testDivisor > 1) {
        if (candidate % state.testDivisor == 0)
            return false;
        --state.testDivisor;
    }
    return true;
}

bool stepToOrder(ProgramState& state, int step) {
    const double entry = state.sizeEntry;
    if (!(entry >= 0 && entry <= maxPrimeEntry) || entry != std::floor(entry))
        return false;
    for (double order = entry + step; order >= 0 && order <= maxPrimeEntry; order += step) {
        if (primetest(state, order)) {
            state.sizeEntry = order;
            return true;
        }
    }
    return false;
}

} // namespace quarvelle
