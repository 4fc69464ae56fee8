#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>

#include "engine/BlankSelection.h"
#include "engine/Construction.h"
#include "engine/EventQueue.h"
#include "engine/LinesInPlay.h"
#include "engine/Random.h"
#include "tests/support/Literal.h"

namespace quarvelle {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

class CountingEvents final : public EventQueue {
public:
    void yield() override { ++m_turns; }
    void wait() override { ++m_turns; }
    int turns() const { return m_turns; }

private:
    int m_turns = 0;
};

/// Takes the time from each turn to the next.
class StretchEvents final : public EventQueue {
public:
    void yield() override {
        m_longest = std::max(m_longest, secondsSince(m_lastTurn));
        m_lastTurn = Clock::now();
    }
    void wait() override { yield(); }
    double longest() const { return m_longest; }

private:
    Clock::time_point m_lastTurn = Clock::now();
    double m_longest = 0;
};

struct Options {
    const char* name;
    int allDiagonals;
    int propertyMode;
};

/// One row of the table.
struct Task {
    int order;
    Options options;
    int difficulty;
    double blankCount;
};

std::unique_ptr<ProgramState> stateFor(const Task& task) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(task.order);
    state->allDiagonals = task.options.allDiagonals;
    state->crossDiagonalMode = state->scatteredCrossDiagonalMode = task.options.propertyMode;
    state->crossLineMode = state->scatteredCrossLineMode = task.options.propertyMode;
    state->difficulty = task.difficulty;
    state->blankCount = task.blankCount;
    return state;
}

struct Times {
    double construction = 0;
    double selection = 0;
    double literal = 0;
    double attempts = 0;
    double longestStretch = 0;
};

constexpr double never = 1e9;

/// Adds what the square and the blanks of one seed take, the best of `repeats`: whatever else the machine
/// does only makes a run longer.
void addSeed(Times& times, const Task& task, float seed, int repeats) {
    double construction = never;
    double selection = never;
    double stretch = never;
    for (int repeat = 0; repeat < repeats; ++repeat) {
        const auto state = stateFor(task);
        SeededRandom random(seed);
        CountingEvents events;
        auto start = Clock::now();
        buildCompleteSquare(*state, random, events);
        construction = std::min(construction, secondsSince(start));
        const int turns = events.turns();
        start = Clock::now();
        selectBlanks(*state, random, events);
        selection = std::min(selection, secondsSince(start));
        if (repeat == 0)
            times.attempts += events.turns() - turns;

        const auto watched = stateFor(task);
        SeededRandom again(seed);
        StretchEvents stretches;
        buildCompleteSquare(*watched, again, stretches);
        selectBlanks(*watched, again, stretches);
        stretches.yield();
        stretch = std::min(stretch, stretches.longest());
    }
    times.construction += construction;
    times.selection += selection;
    times.longestStretch = std::max(times.longestStretch, stretch);
}

double literalSeconds(const Task& task, float seed, int repeats) {
    double best = never;
    for (int repeat = 0; repeat < repeats; ++repeat) {
        const auto state = stateFor(task);
        SeededRandom random(seed);
        CountingEvents events;
        buildCompleteSquare(*state, random, events);
        testing::Literal literal{*state, random, events};
        const auto start = Clock::now();
        literal.selectBlanks();
        best = std::min(best, secondsSince(start));
    }
    return best;
}

void measure(const Task& task) {
    // A literal selection takes seconds at order 97.
    const int seeds = task.order < 29 ? 20 : task.order < 53 ? 8 : 1;
    constexpr int repeats = 9;
    Times times;
    for (int seed = 1; seed <= seeds; ++seed) {
        addSeed(times, task, static_cast<float>(seed), repeats);
        times.literal += literalSeconds(task, static_cast<float>(seed), task.order < 53 ? 3 : 2);
    }
    std::printf("%d,%s,%s,%s,%.3g,%.3g,%.3g,%.0f,%.3g\n", task.order, task.options.name,
                task.difficulty == Difficulty::easy ? "easy" : "challenging",
                task.blankCount == 100 ? "100" : "saturated", times.construction / seeds,
                times.selection / seeds, times.literal / seeds, times.attempts / seeds, times.longestStretch);
    std::fflush(stdout);
}

/// What decimals add to a construction, the best of many.
void measureDecimals() {
    for (const double distance : {1.0, 0.1}) {
        const auto state = stateFor({29, {"main", 0, PropertyMode::none}, Difficulty::challenging, 100});
        state->distance = distance;
        double best = never;
        for (int repeat = 0; repeat < 2000; ++repeat) {
            SeededRandom random(1);
            CountingEvents events;
            const auto start = Clock::now();
            buildCompleteSquare(*state, random, events);
            best = std::min(best, secondsSince(start));
        }
        std::printf("29,distance %g,,,%.3g,,,,\n", distance, best);
    }
}

/// What it takes to find the next blank that a line gives, the longest from any cell, and the lines of a
/// blank.
void measureLinesInPlay() {
    for (const int order : {29, 97}) {
        const auto state =
            stateFor({order, {"main+all", 1, PropertyMode::none}, Difficulty::challenging, 1e9});
        SeededRandom random(1);
        CountingEvents events;
        buildCompleteSquare(*state, random, events);
        selectBlanks(*state, random, events);
        double longest = 0;
        double lines = never;
        for (int row = 1; row <= order; ++row)
            for (int column = 1; column <= order; column += 8) {
                auto start = Clock::now();
                const auto blank = nextGivenBlank(*state, {row, column});
                longest = std::max(longest, secondsSince(start));
                start = Clock::now();
                kindsThatGive(*state, *blank);
                lines = std::min(lines, secondsSince(start));
            }
        std::printf("%d,next blank given / lines of a blank,,,%.3g,%.3g,,,\n", order, longest, lines);
    }
}

} // namespace
} // namespace quarvelle

int main() {
    using namespace quarvelle;
    constexpr Options lineOptions[] = {
        {"main", 0, PropertyMode::none},
        {"main+all", 1, PropertyMode::none},
        {"main+all+props", 1, PropertyMode::all},
    };
    std::puts("order,options,difficulty,blanks,seconds_per_square,seconds_per_selection,"
              "literal_seconds_per_selection,attempts,longest_stretch_seconds");
    measureDecimals();
    measureLinesInPlay();
    for (const int order : {5, 7, 11, 13, 17, 19, 23, 29, 53, 97, 101})
        for (const Options& options : lineOptions)
            for (const int difficulty : {Difficulty::easy, Difficulty::challenging})
                for (const double blankCount : {100.0, 1e9})
                    if (order == 5 || options.propertyMode == PropertyMode::none)
                        measure({order, options, difficulty, blankCount});
}
