#pragma once

#include <string>

namespace quarvelle {

struct ProgramState;

/// The window title while a square is being built.
std::string constructionTitle(const ProgramState& state);

/// The window title while a square is played and between squares.
std::string scoreTitle(const ProgramState& state);

} // namespace quarvelle
