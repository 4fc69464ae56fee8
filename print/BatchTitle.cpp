#include "print/BatchTitle.h"

#include <array>

#include "engine/Numbers.h"
#include "engine/ProgramState.h"
#include "practice/Titles.h"

namespace quarvelle {

std::string batchTitle(const ProgramState& state) {
    // In the order of the values of `puzzleMode`.
    constexpr std::array<const char*, 3> kinds{"squares", "puzzles", "puzzles and answers"};
    return "Creating " + orderByOrder(state) +
           " Complete Magic Square(s): " + numberText(state.printCount - state.squaresSolved) + " out of " +
           numberText(state.printCount) + ' ' + kinds[static_cast<std::size_t>(state.puzzleMode)] +
           " left to print.";
}

} // namespace quarvelle
