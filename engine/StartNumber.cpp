#include "engine/StartNumber.h"

#include <cmath>

#include "engine/MagicArithmetic.h"
#include "engine/ProgramState.h"
#include "engine/Random.h"

namespace quarvelle {

void drawStartNumber(ProgramState& state, RandomSource& random) {
    if (!state.randomStarts)
        return;
    double limit = 1;
    for (int digit = 0; digit < state.maxDigits; ++digit)
        limit *= 10;
    const double n = state.squareSize;
    const double starts = limit - SquareNumbers(state.baseStart, state.distance).realValue(n * n + 1);
    double steps = std::floor(random.draw() * (starts - 1));
    if (*state.randomStarts < starts)
        steps = std::floor(random.draw() * *state.randomStarts);
    state.startNumber = SquareNumbers(state.baseStart, 1).realValue(steps + 1);
    if (!hasPlayableNumbers(state))
        state.startNumber = state.baseStart;
}

} // namespace quarvelle
