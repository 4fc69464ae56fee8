#include "engine/SquareCount.h"

#include "engine/Numbers.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"

namespace quarvelle {

SquareCount squareCount(ProgramState& state, int n) {
    const std::string by = orderByOrder(n);
    const std::string question = "How many " + by + " \"Complete\" Magic Squares are there?:";
    if (n > 97)
        return {question, "The number of Squares is too large!", "", "", ""};
    if (n == 5)
        return {question, "There are 576 fundamental squares.",
                "Each Square yields 25 other squares by row and column shift: (576 * 25 = 14400).",
                "Each Square can also be rotated once to produce a second square: (14400 * 2 = 28800).",
                "Therefore, there are exactly 28800 \"Complete\" Magic Squares of (5 by 5)."};

    double& f = state.factorialSquare;
    f = n - 1;
    for (double k = n - 2; k >= 2; --k)
        f *= k;
    f *= f;
    const double width = n;
    const std::string fundamental = numberText(3 * f);
    const std::string shifts = numberText(width * width);
    const std::string shifted = numberText(f * (3 * (width * width)));
    const std::string total = numberText(f * (3 * (width * (4 * width))));
    return {question, "There are " + fundamental + " fundamental squares.",
            "Each Square yields " + shifts + " other squares by row and column shift: (" + fundamental +
                " * " + shifts + " = " + shifted + ").",
            "Each Square can also be rotated three times to produce three more squares: (" + shifted +
                " * 4 = " + total + ").",
            "Therefore, there are exactly " + total + " \"Complete\" Magic Squares of " + by + "."};
}

} // namespace quarvelle
