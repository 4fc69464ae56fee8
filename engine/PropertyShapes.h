#pragma once

#include <array>
#include <optional>

#include "engine/DeductionCheck.h"
#include "engine/LineKinds.h"

namespace quarvelle {

/// One 5 by 5 property: the first of its five line kinds, and its mode field.
struct PropertyFamily {
    int firstKind;
    int ProgramState::*mode;
};

/// In the order in which blank selection tries them.
inline constexpr std::array<PropertyFamily, 4> propertyFamilies{{
    {firstKindOf(crossDiagonals), &ProgramState::crossDiagonalMode},
    {firstKindOf(scatteredCrossDiagonals), &ProgramState::scatteredCrossDiagonalMode},
    {firstKindOf(crossLines), &ProgramState::crossLineMode},
    {firstKindOf(scatteredCrossLines), &ProgramState::scatteredCrossLineMode},
}};

/// Whether the shape of `kind` through `cell` may be used in a property's mode: anywhere in "All", inside the
/// square in "Only Main".
bool fitsShape(int mode, int kind, Cell cell, int n);

/// How many blanks lie on the shape of `kind` through the candidate (`anchorRow`, `anchorCol`); nothing where
/// one of its cells holds the kind's own marker.
std::optional<int> blanksOnShape(const ProgramState& state, int kind);

/// Tries the five placements of a shape through the candidate, first the one with the candidate at the
/// centre. A placement will do if it fits, if `accepts(kind)` is true and if none of its cells holds the
/// marker of its kind. The first that will do has its marker written into `puzzle` and sets `blankPlaced` to
/// 1; if none will, `puzzle` stays as it is. The candidate may be blank already; its marker is overwritten
/// then.
template <class Accepts>
void placeShape(ProgramState& state, const PropertyFamily& family, Accepts accepts) {
    const Cell candidate{state.anchorRow, state.anchorCol};
    for (int kind = family.firstKind; kind < family.firstKind + kindsPerFamily; ++kind) {
        if (!fitsShape(state.*family.mode, kind, candidate, state.squareSize))
            continue;
        state.lineKind = kind;
        state.blankAccepted = accepts(kind) ? 1 : 0;
        if (state.blankAccepted == 1 && blanksOnShape(state, kind)) {
            cellAt(state.puzzle, candidate) = blankMarker(kind);
            state.blankPlaced = 1;
            return;
        }
    }
}

/// Rates the same five placements through a candidate that is not blank: sets `lineUsable` or `lineRejected`
/// to 1 for each, and `lineBlankCount` and `bestBlankCount` where it has at least as many blanks as the best
/// so far. Clears none of them.
void rateShape(ProgramState& state, const PropertyFamily& family);

/// The procedures of one family; they read and write the state alone.
template <ShapeFamily family>
void placeByCheck(ProgramState& state) {
    placeShape(state, propertyFamilies[family], [&state](int) {
        makeblanks(state);
        return state.blankAccepted == 1;
    });
}
template <ShapeFamily family>
void rateFamily(ProgramState& state) {
    rateShape(state, propertyFamilies[family]);
}

/// The procedures by their names: `d1...` place and `d2...` rate. `selectBlanks` doesn't use those that
/// place: it asks its ledger instead of `makeblanks`, for the same answer in less time.
using PropertyProcedure = void (*)(ProgramState&);
inline constexpr PropertyProcedure d1scross = placeByCheck<crossDiagonals>;
inline constexpr PropertyProcedure d1scross2 = placeByCheck<scatteredCrossDiagonals>;
inline constexpr PropertyProcedure d1scline = placeByCheck<crossLines>;
inline constexpr PropertyProcedure d1scline2 = placeByCheck<scatteredCrossLines>;
inline constexpr PropertyProcedure d2scross = rateFamily<crossDiagonals>;
inline constexpr PropertyProcedure d2scross2 = rateFamily<scatteredCrossDiagonals>;
inline constexpr PropertyProcedure d2scline = rateFamily<crossLines>;
inline constexpr PropertyProcedure d2scline2 = rateFamily<scatteredCrossLines>;

} // namespace quarvelle
