#include "engine/LineKinds.h"

#include <algorithm>

namespace quarvelle {

int markerKind(double value) {
    const auto* const found = std::lower_bound(blankMarkers.begin(), blankMarkers.end(), value);
    const bool isMarker = found != blankMarkers.end() && *found == value;
    return isMarker ? static_cast<int>(found - blankMarkers.begin()) + 1 : 0;
}

} // namespace quarvelle
