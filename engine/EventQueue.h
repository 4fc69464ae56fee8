#pragma once

namespace quarvelle {

/// The turn of the user-interface event queue that long operations give away.
class EventQueue {
public:
    virtual ~EventQueue() = default;

    /// Handles events that are pending and returns; called once a pass of every long loop, which may be every
    /// few hundred nanoseconds. No event stays pending for more than a few milliseconds of such calls. Any
    /// field of the program state that a handler writes may have changed afterwards.
    virtual void yield() = 0;

    /// Like `yield`, but sleeps until there is an event where none is pending.
    virtual void wait() = 0;
};

} // namespace quarvelle
