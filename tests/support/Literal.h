#pragma once

#include <array>
#include <vector>

#include "engine/ProgramState.h"

namespace quarvelle {
class EventQueue;
class RandomSource;
} // namespace quarvelle

namespace quarvelle::testing {

/// The engine with no regard to time: every line is walked cell by cell, every check clears and searches its
/// queue. Says what a square and its blanks must be for given draws, and when the draws and turns come.
class Literal {
public:
    Literal(ProgramState& state, RandomSource& random, EventQueue& events)
        : s(state), m_random(random), m_events(events) {}

    void buildCompleteSquare();
    void selectBlanks();
    void makeblanks();

private:
    using Flags = std::array<int, lineKindCount + 1>;

    bool stopped();
    int drawDirection();
    void recordAxisCell(int k, double value);
    bool layAxes();
    bool fillBlocks();

    void drawCell();
    void toAnchor();
    bool step();
    bool lineHolds(int kind);
    bool onMain(int kind) const;
    bool diagonalsTakePart() const;
    bool fits(int kind, int mode);
    void rateLine(int kind);
    void rateShapes(int firstKind, int mode);
    void rate();
    int chooseKind();
    bool liesOnRootLine();
    bool attempt();
    bool placeThrough(int kind);
    void placeThroughShape(int firstKind, int mode);
    bool placeAnywhere();
    bool scan();

    ProgramState& s;
    RandomSource& m_random;
    EventQueue& m_events;
    std::vector<int> m_queueRow, m_queueCol, m_queueKind; ///< from 1; kind -1 ends the queue
};

} // namespace quarvelle::testing
