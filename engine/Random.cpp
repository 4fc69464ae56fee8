#include "engine/Random.h"

#include <bit>
#include <cstdint>

namespace quarvelle {

void SeededRandom::seed(float secondsSinceMidnight) {
    // All bits of the number, so that two starts within the same second differ as well.
    m_bits.seed(std::bit_cast<std::uint32_t>(secondsSinceMidnight));
}

double SeededRandom::draw() {
    constexpr double unit = 1.0 / (std::uint64_t{1} << 53);
    return static_cast<double>(m_bits() >> 11) * unit;
}

} // namespace quarvelle
