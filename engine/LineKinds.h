#pragma once

#include <array>
#include <cstddef>

#include "engine/Cells.h"

namespace quarvelle {

/// Kinds 1 to this are whole lines of n cells; the kinds above are shapes of five.
inline constexpr int wholeLineKinds = 4;

/// The whole lines: along an anti-diagonal row + column stays the same, along a diagonal row - column.
namespace WholeLine {
inline constexpr int column = 1;
inline constexpr int row = 2;
inline constexpr int antiDiagonal = 3;
inline constexpr int diagonal = 4;
} // namespace WholeLine

/// The five-cell kinds come in families of this many: one shape, anchored at each of its cells.
inline constexpr int kindsPerFamily = 5;

/// The families, each at its place in `shapeFamilies`.
enum ShapeFamily { crossDiagonals, scatteredCrossDiagonals, crossLines, scatteredCrossLines };

/// The first kind of a family; its anchor is the centre of the shape.
constexpr int firstKindOf(int family) {
    return wholeLineKinds + 1 + family * kindsPerFamily;
}
/// The family of a five-cell kind.
constexpr int familyOf(int kind) {
    return (kind - firstKindOf(0)) / kindsPerFamily;
}
/// Which cell of its shape a five-cell kind is anchored at: 0 for the centre, 1 to 4 for the arms.
constexpr int anchorOf(int kind) {
    return (kind - firstKindOf(0)) % kindsPerFamily;
}

/// The only order with five-cell kinds.
inline constexpr int shapeOrder = 5;

/// The offsets from the anchor of the four other cells of a five-cell kind, in walking order.
using Shape = std::array<Step, 4>;
using Family = std::array<Shape, kindsPerFamily>;

/// The steps of the whole-line kinds: column, row, broken anti-diagonal, broken diagonal.
inline constexpr std::array<Step, wholeLineKinds> wholeLineSteps{{{1, 0}, {0, 1}, {1, -1}, {1, 1}}};

// In each family the anchor is the centre first, then each of the four arms.
inline constexpr Family crossDiagonal{{
    {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}},
    {{{2, 0}, {2, 2}, {0, 2}, {1, 1}}},
    {{{-2, 0}, {-2, 2}, {0, 2}, {-1, 1}}},
    {{{0, -2}, {2, -2}, {2, 0}, {1, -1}}},
    {{{0, -2}, {-2, -2}, {-2, 0}, {-1, -1}}},
}};
inline constexpr Family crossLine{{
    {{{-1, 0}, {0, -1}, {1, 0}, {0, 1}}},
    {{{0, 1}, {0, 2}, {-1, 1}, {1, 1}}},
    {{{1, 0}, {2, 0}, {1, -1}, {1, 1}}},
    {{{-1, 0}, {-2, 0}, {-1, -1}, {-1, 1}}},
    {{{0, -1}, {0, -2}, {-1, -1}, {1, -1}}},
}};

/// The same shape at twice the size.
constexpr Family scattered(Family family) {
    for (Shape& shape : family)
        for (Step& offset : shape)
            offset = {2 * offset.row, 2 * offset.column};
    return family;
}

/// Kinds 5 to 24.
inline constexpr std::array<Family, 4> shapeFamilies{crossDiagonal, scattered(crossDiagonal), crossLine,
                                                     scattered(crossLine)};

inline constexpr std::array blankMarkers{1e200, 1e201, 1e202, 1e203, 1e204, 1e205, 1e206, 1e207,
                                         1e208, 1e209, 1e210, 1e211, 1e212, 1e213, 1e214, 1e215,
                                         1e216, 1e217, 1e218, 1e219, 1e220, 1e221, 1e222, 1e223};
static_assert(blankMarkers.front() == emptyMarker && blankMarkers.size() == lineKindCount &&
              wholeLineKinds + shapeFamilies.size() * kindsPerFamily == lineKindCount);

/// The fixed step of a whole-line kind 1 to 4.
constexpr Step wholeLineStep(int kind) {
    return wholeLineSteps[static_cast<std::size_t>(kind - 1)];
}

/// The shape of a five-cell kind 5 to 24.
constexpr const Shape& shapeOffsets(int kind) {
    return shapeFamilies[static_cast<std::size_t>(familyOf(kind))][static_cast<std::size_t>(anchorOf(kind))];
}

inline constexpr auto shapeCentres = [] {
    std::array<Step, lineKindCount + 1> centres{};
    for (int kind = firstKindOf(0); kind <= lineKindCount; ++kind) {
        Step& centre = centres[static_cast<std::size_t>(kind)];
        for (const Step offset : shapeOffsets(kind))
            centre = {centre.row + offset.row, centre.column + offset.column};
        centre = {centre.row / kindsPerFamily, centre.column / kindsPerFamily};
    }
    return centres;
}();

/// The offset of a shape's centre from the anchor of a five-cell kind. It is the mean of the offsets of the
/// five cells, the anchor's own being zero, since the arms lie symmetrically around the centre.
constexpr Step centreOffset(int kind) {
    return shapeCentres[static_cast<std::size_t>(kind)];
}

/// The marker of a blank that is deduced through `kind` (1 to 24): 1e200 to 1e223.
constexpr double blankMarker(int kind) {
    return blankMarkers[static_cast<std::size_t>(kind - 1)];
}

/// The kind whose marker `value` is; 0 for any other value.
int markerKind(double value);

/// Whether a cell's value is a blank's.
inline bool isBlank(double value) {
    return value >= emptyMarker;
}

} // namespace quarvelle
