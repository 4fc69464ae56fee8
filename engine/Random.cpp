#include "engine/Random.h"

#include <bit>
#include <cstdint>

namespace quarvelle {

void SeededRandom::seed(float secondsSinceMidnight) {
    // The bits of the number, not its whole part: two starts within one second differ as well.
    m_bits.seed(std::bit_cast<std::uint32_t>(secondsSinceMidnight));
}

double SeededRandom::draw() {
    constexpr double unit = 1.0 / (std::uint64_t{1} << 53);
    return static_cast<double>(m_bits() >> 11) * unit;
}

} // namespace quarvelle
