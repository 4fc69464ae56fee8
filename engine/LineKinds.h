#pragma once

#include <array>

#include "engine/Cells.h"

namespace quarvelle {

/// Kinds 1 to this are whole lines of n cells; the kinds above are shapes of five.
inline constexpr int wholeLineKinds = 4;
/// The five-cell kinds come in families of this many: one shape, anchored at each of its cells.
inline constexpr int kindsPerFamily = 5;

/// The fixed step of a whole-line kind 1 to 4 (column, row, broken anti-diagonal, broken diagonal).
Step wholeLineStep(int kind);

/// The offsets from the anchor of the four other cells of a five-cell kind 5 to 24, in walking order. Kinds
/// come in fives: cross-diagonal, scattered cross-diagonal, cross-line, scattered cross-line; a scattered
/// shape is its plain one at twice the size.
const std::array<Step, 4>& shapeOffsets(int kind);

/// The offset from the anchor of the centre of a five-cell kind.
Step shapeCentre(int kind);

/// The marker of a blank that is deduced through `kind` (1 to 24): 1e200 to 1e223.
double blankMarker(int kind);

/// The kind whose marker `value` is; 0 for any other value.
int markerKind(double value);

/// Whether a cell's value is a blank's.
inline bool isBlank(double value) {
    return value >= emptyMarker;
}

} // namespace quarvelle
