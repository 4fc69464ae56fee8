#include "print/SheetPlan.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace quarvelle {

SheetPlan::SheetPlan(int squares, int fitting, int sheetsOfBundle)
    : m_bundles((squares - 1) / fitting + 1), m_fewest(squares / m_bundles), m_fuller(squares % m_bundles),
      m_sheetsOfBundle(sheetsOfBundle) {}

int SheetPlan::firstSquareOf(int bundle) const {
    return (bundle - 1) * m_fewest + std::min(bundle - 1, m_fuller) + 1;
}

int SheetPlan::sheetsOf(int bundles) const {
    const std::int64_t sheets = std::int64_t{bundles} * m_sheetsOfBundle;
    return static_cast<int>(std::min<std::int64_t>(sheets, std::numeric_limits<int>::max()));
}

} // namespace quarvelle
