#pragma once

#include <chrono>
#include <functional>
#include <utility>

#include "engine/EventQueue.h"

namespace quarvelle {

/// Qt's event queue, on the thread of the user interface. The engine yields every few hundred nanoseconds,
/// while Qt takes microseconds to find that there are no events. So a `yield` within `turnInterval` of the
/// last time Qt handled events only looks at the clock.
class QtEventQueue final : public EventQueue {
public:
    using Clock = std::chrono::steady_clock;

    /// The longest that an event waits while the engine yields often.
    static constexpr Clock::duration turnInterval = std::chrono::milliseconds(4);

    /// `now` returns the time, which never goes back.
    explicit QtEventQueue(std::function<Clock::time_point()> now = Clock::now) : m_now(std::move(now)) {}

    void yield() override;

    /// Always lets Qt handle events, and so does the next `yield`: whatever runs then was caused by an event,
    /// and should be shown without delay.
    void wait() override;

private:
    std::function<Clock::time_point()> m_now;
    Clock::time_point m_nextTurn = Clock::time_point::min(); ///< before this, `yield` handles no events
};

} // namespace quarvelle
