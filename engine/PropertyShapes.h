#pragma once

#include <array>

#include "engine/LineKinds.h"

namespace quarvelle {

/// The placing family. Each procedure tries the five placements of its shape through the candidate
/// (`anchorRow`, `anchorCol`), the candidate at the centre first. The first one that fits (anywhere in "All",
/// inside the square in "Only Main"), holds no marker of its own kind and passes `makeblanks` writes its
/// marker into `puzzle` and sets `blankPlaced`; where none does, nothing changes. The candidate may be blank
/// already: a later success overwrites the marker of an earlier one.
void d1scross(ProgramState& state);
void d1scross2(ProgramState& state);
void d1scline(ProgramState& state);
void d1scline2(ProgramState& state);

/// The rating family. For each of the same placements through a candidate that is not blank it sets
/// `lineUsable` or `lineRejected`, and `lineBlankCount` and `bestBlankCount` when the blanks on the placement
/// are at least the best count so far. Clears none of them.
void d2scross(ProgramState& state);
void d2scross2(ProgramState& state);
void d2scline(ProgramState& state);
void d2scline2(ProgramState& state);

/// One 5 by 5 property: its five line kinds from `firstKind`, its mode field and its two procedures.
struct PropertyFamily {
    int firstKind;
    int ProgramState::*mode;
    void (*place)(ProgramState&);
    void (*rate)(ProgramState&);
};

/// In the order in which a round calls them.
inline constexpr std::array<PropertyFamily, 4> propertyFamilies{{
    {5, &ProgramState::crossDiagonalMode, d1scross, d2scross},
    {10, &ProgramState::scatteredCrossDiagonalMode, d1scross2, d2scross2},
    {15, &ProgramState::crossLineMode, d1scline, d2scline},
    {20, &ProgramState::scatteredCrossLineMode, d1scline2, d2scline2},
}};

} // namespace quarvelle
