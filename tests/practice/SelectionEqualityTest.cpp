#include <gtest/gtest.h>

#include "engine/Construction.h"
#include "practice/BlankSelection.h"
#include "tests/support/Lines.h"
#include "tests/support/Literal.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
namespace {

struct Settings {
    int order;
    Options options;
    double blankCount = 1e9;
    int seed = 1;
    int stopAt = 0; ///< the turn at which a stop is asked for; 0 for none
};

class SelectionEquality : public ::testing::Test {
protected:
    std::vector<double> m_expected, m_actual;

    /// Puts into `seen` all that a handler can see when it gets its turn, and in the end, of two squares in a
    /// row, as a run of practice makes them: some results outlive a selection. Returns how many turns there
    /// are.
    static int watch(const Settings& settings, bool isLiteral, std::vector<double>& seen) {
        const auto state = stateOf(settings.order, settings.options, settings.blankCount);
        ProgramState& s = *state;
        s.distance = 0.3;
        ScriptedRandom random({}, static_cast<float>(settings.seed));
        ScriptedEvents events;
        seen.clear();
        const auto add = [&](const auto& numbers) {
            seen.insert(seen.end(), numbers.begin(), numbers.end());
        };
        const auto note = [&] {
            add(std::array{random.draws(), s.placeIndex, s.attemptCount, s.bestBlankCount, s.stopRequested,
                           s.probeKind, s.probeAnchorRow, s.probeAnchorCol});
            add(s.lineUsable);
            add(s.lineBlankCount);
            add(s.lineRejected);
        };
        events.onYield = [&](int turn) {
            note();
            if (turn == settings.stopAt)
                s.stopRequested = Request::stop;
        };
        for (int square = 0; square < 2 && s.stopRequested != Request::stop; ++square) {
            Literal literal(s, random, events);
            isLiteral ? literal.buildCompleteSquare() : buildCompleteSquare(s, random, events);
            if (s.stopRequested != Request::stop)
                isLiteral ? literal.selectBlanks() : selectBlanks(s, random, events);
        }
        note();
        // A stopped construction leaves its square unfinished.
        if (settings.stopAt == 0)
            std::for_each(s.square.begin(), s.square.end(), add);
        std::for_each(s.puzzle.begin(), s.puzzle.end(), add);
        add(s.placedRow);
        add(s.placedColumn);
        add(s.placedValue);
        return events.yields();
    }

    /// Returns how many turns there are.
    int expectEqual(const Settings& settings) {
        const int turns = watch(settings, true, m_expected);
        watch(settings, false, m_actual);
        EXPECT_TRUE(m_actual == m_expected)
            << "order " << settings.order << ", " << settings.options << ", blanks " << settings.blankCount
            << ", seed " << settings.seed << ", stop at " << settings.stopAt;
        return turns;
    }

    /// `seeds` runs, every other one saturated, and each once more with a stop on its way.
    void expectEqualFor(Settings settings, int seeds) {
        for (int seed = 1; seed <= seeds && !HasFailure(); ++seed) {
            settings.seed = seed;
            settings.blankCount = seed % 2 == 1 ? 1e9 : 1 + seed / 2;
            settings.stopAt = 0;
            settings.stopAt = 1 + seed * 7919 % expectEqual(settings);
            expectEqual(settings);
        }
    }
};

TEST_F(SelectionEquality, OrderFiveWithEveryPropertyMode) {
    for (const Options& options : everyChoice(true))
        expectEqualFor({5, options}, 4);
}

TEST_F(SelectionEquality, EveryLineOption) {
    for (const auto& [order, seeds] : {std::pair{7, 200}, {11, 60}, {13, 40}, {29, 3}})
        for (const Options& options : everyChoice(false))
            expectEqualFor({order, options}, seeds);
    for (const int difficulty : {Difficulty::easy, Difficulty::challenging}) {
        expectEqual({101, {1, 1, difficulty}, 150});
        expectEqual({103, {0, 1, difficulty}, 150, 2});
        expectEqual({101, {1, 0, difficulty}, 1e9, 3});
    }
}

} // namespace
} // namespace quarvelle::testing
