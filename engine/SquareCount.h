#pragma once

#include <string>

namespace quarvelle {

struct ProgramState;

/// The five lines that say how many complete squares of a size exist.
struct SquareCount {
    std::string question;
    std::string fundamental;
    std::string shifts;
    std::string rotations;
    std::string total;
};

/// The lines for order `n`, a prime of at least 5. For 7 to 97 there are 3((n - 1)!)^2 fundamental squares,
/// each with n*n shifts and 4 rotations; order 5 has numbers of its own, and from 101 on the count is too
/// large for a double. Leaves ((n - 1)!)^2 in `factorialSquare`.
SquareCount squareCount(ProgramState& state, int n);

} // namespace quarvelle
