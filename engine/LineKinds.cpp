#include "engine/LineKinds.h"

#include <algorithm>

namespace quarvelle {

namespace {

constexpr std::array<double, lineKindCount> markers{1e200, 1e201, 1e202, 1e203, 1e204, 1e205, 1e206, 1e207,
                                                    1e208, 1e209, 1e210, 1e211, 1e212, 1e213, 1e214, 1e215,
                                                    1e216, 1e217, 1e218, 1e219, 1e220, 1e221, 1e222, 1e223};

constexpr std::array<Step, wholeLineKinds> steps{{{1, 0}, {0, 1}, {1, -1}, {1, 1}}};

using Shape = std::array<Step, 4>;
using Family = std::array<Shape, kindsPerFamily>;

// In each family the anchor is the centre first, then each of the four arms.
constexpr Family crossDiagonal{{
    {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}},
    {{{2, 0}, {2, 2}, {0, 2}, {1, 1}}},
    {{{-2, 0}, {-2, 2}, {0, 2}, {-1, 1}}},
    {{{0, -2}, {2, -2}, {2, 0}, {1, -1}}},
    {{{0, -2}, {-2, -2}, {-2, 0}, {-1, -1}}},
}};

constexpr Family crossLine{{
    {{{-1, 0}, {0, -1}, {1, 0}, {0, 1}}},
    {{{0, 1}, {0, 2}, {-1, 1}, {1, 1}}},
    {{{1, 0}, {2, 0}, {1, -1}, {1, 1}}},
    {{{-1, 0}, {-2, 0}, {-1, -1}, {-1, 1}}},
    {{{0, -1}, {0, -2}, {-1, -1}, {1, -1}}},
}};

constexpr Family scattered(Family family) {
    for (Shape& shape : family)
        for (Step& offset : shape)
            offset = {2 * offset.row, 2 * offset.column};
    return family;
}

constexpr std::array<Family, 4> families{crossDiagonal, scattered(crossDiagonal), crossLine,
                                         scattered(crossLine)};

} // namespace

Step wholeLineStep(int kind) {
    return steps[static_cast<std::size_t>(kind - 1)];
}

const std::array<Step, 4>& shapeOffsets(int kind) {
    const auto index = static_cast<std::size_t>(kind - wholeLineKinds - 1);
    return families[index / kindsPerFamily][index % kindsPerFamily];
}

Step shapeCentre(int kind) {
    // The mean of the five cells, the anchor's own offset being zero.
    Cell sum;
    for (const Step offset : shapeOffsets(kind))
        sum = sum + offset;
    return {sum.row / 5, sum.column / 5};
}

double blankMarker(int kind) {
    return markers[static_cast<std::size_t>(kind - 1)];
}

int markerKind(double value) {
    const auto found = std::find(markers.begin(), markers.end(), value);
    return found == markers.end() ? 0 : static_cast<int>(found - markers.begin()) + 1;
}

} // namespace quarvelle
