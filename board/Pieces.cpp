#include "board/Pieces.h"

#include <algorithm>

namespace quarvelle {

Piece Pieces::at(Place piece) const {
    const Place first{(piece.across - 1) * m_across + 1, (piece.down - 1) * m_down + 1};
    return {first, std::min(m_across, m_order - first.across + 1),
            std::min(m_down, m_order - first.down + 1)};
}

} // namespace quarvelle
