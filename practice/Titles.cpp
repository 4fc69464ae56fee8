#include "practice/Titles.h"

#include "engine/Numbers.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"

namespace quarvelle {

std::string constructionTitle(const ProgramState& state) {
    return "Creating " + orderByOrder(state.squareSize) + " Complete Magic Square (with blanks)";
}

std::string scoreTitle(const ProgramState& state) {
    return "Number of " + orderByOrder(state.squareSize) +
           " Complete Magic Square(s) solved: " + numberText(state.squaresSolved) +
           " / Numbers correct: " + numberText(state.numbersCorrect) +
           " / Numbers incorrect: " + numberText(state.numbersIncorrect);
}

} // namespace quarvelle
