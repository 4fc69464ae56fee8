#pragma once

#include <string>

namespace quarvelle {

struct ProgramState;

/// The window title while a batch is made: how many are left to print, out of how many, and of what.
std::string batchTitle(const ProgramState& state);

} // namespace quarvelle
