#pragma once

#include <random>

namespace quarvelle {

/// Where random draws come from. Their order is part of each algorithm: the same draws give the same square
/// with the same blanks.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    /// One number, uniform on [0, 1).
    virtual double draw() = 0;

    /// A random integer from 0 to `limit` - 1, for one draw.
    int below(int limit) { return static_cast<int>(draw() * limit); }
};

/// The program's generator, seeded once with the seconds since midnight, fraction included.
class SeededRandom final : public RandomSource {
public:
    explicit SeededRandom(float secondsSinceMidnight) { seed(secondsSinceMidnight); }

    void seed(float secondsSinceMidnight);
    double draw() override;

private:
    std::mt19937_64 m_bits;
};

} // namespace quarvelle
