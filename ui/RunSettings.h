#pragma once

namespace quarvelle {

class MainPage;
class PropertiesPage;
struct ProgramState;

/// Reads all that a run, of practice or of printing, takes from the pages, when it begins: the properties,
/// the numbers and counts of the boxes, whether starting numbers are drawn and from how many. Tidies the
/// boxes: rewrites them as the texts of the numbers they hold, and replaces numbers that make no sense. A
/// distance that isn't positive is kept out of the state while an earlier positive one is there. Refreshes
/// the readouts and measures the board.
void readRunSettings(ProgramState& state, MainPage& page, PropertiesPage& properties);

} // namespace quarvelle
