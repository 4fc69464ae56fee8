#pragma once

namespace quarvelle {

/// How a long operation lets the window handle its events in between.
class EventQueue {
public:
    virtual ~EventQueue() = default;

    /// Gives the window a turn: handles the events that are pending, then returns. Every long loop calls it
    /// once a pass, which may be every few hundred nanoseconds. Not every call has to handle events, but none
    /// may wait more than a few milliseconds while calls go on. A handler may write to the program state, so
    /// a caller reads what it needs of the state again.
    virtual void yield() = 0;

    /// Handles pending events like `yield`, and sleeps until one arrives if there is none.
    virtual void wait() = 0;
};

} // namespace quarvelle
