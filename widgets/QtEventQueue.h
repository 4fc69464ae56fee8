#pragma once

#include <chrono>
#include <functional>
#include <utility>

#include "engine/EventQueue.h"

namespace quarvelle {

/// The toolkit's event queue, on the user-interface thread. The engine offers a turn every few hundred
/// nanoseconds, and an empty turn of the toolkit takes microseconds; so a turn that comes within
/// `turnInterval` of the last one only looks at the clock.
class QtEventQueue final : public EventQueue {
public:
    using Clock = std::chrono::steady_clock;

    /// How long a waiting event may stay unseen, the engine's own longest stretch apart.
    static constexpr Clock::duration turnInterval = std::chrono::milliseconds(4);

    /// `now` tells the time and never goes back.
    explicit QtEventQueue(std::function<Clock::time_point()> now = Clock::now) : m_now(std::move(now)) {}

    void yield() override;

    /// Always goes to the toolkit, and so does the first `yield` that follows: what happens next answers an
    /// event.
    void wait() override;

private:
    std::function<Clock::time_point()> m_now;
    Clock::time_point m_nextTurn = Clock::time_point::min(); ///< earlier yields stay with the clock
};

} // namespace quarvelle
