#include <gtest/gtest.h>
#include <memory>
#include <tuple>
#include <vector>

#include "engine/Construction.h"
#include "practice/BlankSelection.h"
#include "tests/support/Lines.h"
#include "tests/support/Literal.h"
#include "tests/support/Scripted.h"

namespace quarvelle {
namespace {

using testing::Literal;
using testing::ScriptedEvents;
using testing::ScriptedRandom;

struct Settings {
    int order;
    testing::Options options;
    double blankCount = 1e9;
    int seed = 1;
    int stopAt = 0; ///< the turn at which a stop is asked for; 0 for none
};

std::ostream& operator<<(std::ostream& out, const Settings& s) {
    return out << "order " << s.order << ", " << s.options << ", blanks " << s.blankCount << ", seed "
               << s.seed << ", stop at " << s.stopAt;
}

/// What a handler can see when it gets its turn.
using Flags = std::array<int, lineKindCount + 1>;
using Turn = std::tuple<std::array<int, 8>, Flags, Flags, Flags>;

struct Outcome {
    std::unique_ptr<ProgramState> state;
    std::vector<Turn> turns; ///< and the end
};

/// Two squares in a row, as a run of practice makes them: some results outlive a selection.
Outcome outcomeOf(const Settings& settings, bool isLiteral) {
    Outcome outcome;
    outcome.state = testing::stateOf(settings.order, settings.options, settings.blankCount);
    ProgramState& s = *outcome.state;
    s.distance = 0.3;
    ScriptedRandom random({}, static_cast<float>(settings.seed));
    ScriptedEvents events;
    const auto note = [&] {
        outcome.turns.push_back({{random.draws(), s.placeIndex, s.attemptCount, s.bestBlankCount,
                                  s.stopRequested, s.probeKind, s.probeAnchorRow, s.probeAnchorCol},
                                 s.lineUsable,
                                 s.lineBlankCount,
                                 s.lineRejected});
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
    return outcome;
}

/// Returns how many turns there are.
int expectEqual(const Settings& settings) {
    const auto [expected, expectedTurns] = outcomeOf(settings, true);
    const auto [actual, turns] = outcomeOf(settings, false);
    const auto differing =
        std::mismatch(turns.begin(), turns.end(), expectedTurns.begin(), expectedTurns.end());
    EXPECT_TRUE(turns == expectedTurns && actual->puzzle == expected->puzzle &&
                (settings.stopAt != 0 || actual->square == expected->square) &&
                actual->placedRow == expected->placedRow && actual->placedColumn == expected->placedColumn &&
                actual->placedValue == expected->placedValue)
        << settings << " equal for " << differing.first - turns.begin() << " of " << turns.size();
    return static_cast<int>(turns.size()) - 1;
}

/// `seeds` runs, every other one saturated, and each once more with a stop on its way.
void expectEqualFor(Settings settings, int seeds) {
    for (int seed = 1; seed <= seeds && !::testing::Test::HasFailure(); ++seed) {
        settings.seed = seed;
        settings.blankCount = seed % 2 == 1 ? 1e9 : 1 + seed / 2;
        settings.stopAt = 0;
        settings.stopAt = 1 + seed * 7919 % expectEqual(settings);
        expectEqual(settings);
    }
}

TEST(SelectionEquality, OrderFiveWithEveryPropertyMode) {
    for (const testing::Options& options : testing::everyChoice(true))
        expectEqualFor({5, options}, 4);
}

TEST(SelectionEquality, EveryLineOption) {
    for (const auto& [order, seeds] : {std::pair{7, 200}, {11, 60}, {13, 40}, {29, 3}})
        for (const testing::Options& options : testing::everyChoice(false))
            expectEqualFor({order, options}, seeds);
}

TEST(SelectionEquality, LargestOrders) {
    for (const int difficulty : {Difficulty::easy, Difficulty::challenging}) {
        expectEqual({101, {1, 1, difficulty}, 150});
        expectEqual({103, {0, 1, difficulty}, 150, 2});
        expectEqual({101, {1, 0, difficulty}, 1e9, 3});
    }
}

} // namespace
} // namespace quarvelle
