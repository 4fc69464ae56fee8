#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <vector>

#include "engine/EventQueue.h"
#include "engine/Random.h"

namespace quarvelle::testing {

/// Gives the draws of a list, then those of a seeded generator; counts them.
class ScriptedRandom final : public RandomSource {
public:
    explicit ScriptedRandom(std::vector<double> script = {}, float seed = 1)
        : m_script(std::move(script)), m_rest(seed) {}

    double draw() override {
        return ++m_draws > std::ssize(m_script) ? m_rest.draw() : m_script[m_draws - 1];
    }
    int draws() const { return m_draws; }

private:
    std::vector<double> m_script;
    SeededRandom m_rest;
    int m_draws = 0;
};

/// Lets a test act at each turn; one that would sleep is told apart.
class ScriptedEvents final : public EventQueue {
public:
    std::function<void()> onYield = [] {};
    std::function<void()> onWait = [] {};
    std::function<void()> onFailure = [] {}; ///< instead of either, once the running test has failed

    void yield() override { ::testing::Test::HasFailure() ? onFailure() : onYield(); }
    void wait() override { ::testing::Test::HasFailure() ? onFailure() : onWait(); }
};

} // namespace quarvelle::testing
