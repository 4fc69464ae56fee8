#pragma once

namespace quarvelle {

class MainPage;
class PropertiesPage;
struct ProgramState;

/// Reads into the state all settings on the pages that a run, of practice or of printing, begins with: the
/// properties, the numbers in the boxes, and from how many starting numbers to draw, if any. Rewrites each
/// box as the text of its number, and replaces numbers that make no sense: fewer than 1 blank by 1, fewer
/// than 1 random starting number by 2, a distance of 0 by 1. A negative distance is not read: the state keeps
/// the earlier one if that is positive, otherwise it becomes 1. Refreshes the readouts and measures the
/// board.
void readRunSettings(ProgramState& state, MainPage& page, PropertiesPage& properties);

} // namespace quarvelle
