#include "print/SheetPlan.h"

#include <algorithm>

namespace quarvelle {

SheetPlan::SheetPlan(int squares, int fitting, int sheetsOfBundle)
    : m_bundles((squares - 1) / fitting + 1), m_fewest(squares / m_bundles), m_fuller(squares % m_bundles),
      m_sheetsOfBundle(sheetsOfBundle) {}

int SheetPlan::firstSquareOf(int bundle) const {
    return (bundle - 1) * m_fewest + std::min(bundle - 1, m_fuller) + 1;
}

} // namespace quarvelle
