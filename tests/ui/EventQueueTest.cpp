#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <gtest/gtest.h>

#include "ui/DrawingSurface.h"
#include "ui/QtEventQueue.h"

namespace quarvelle {
namespace {

using Clock = QtEventQueue::Clock;

TEST(EventQueue, GoesToTheToolkitWhenItsIntervalHasPassed) {
    Clock::time_point time;
    QtEventQueue events([&time] { return time; });
    /// Whether a turn handles an event, which takes some time.
    const auto handledAfter = [&](Clock::duration passing, Clock::duration handling = {}) {
        QObject receiver;
        bool handled = false;
        const auto handle = [&] { handled = true, time += handling; };
        QMetaObject::invokeMethod(&receiver, handle, Qt::QueuedConnection);
        time += passing;
        events.yield();
        return handled;
    };
    const Clock::duration none(0), tick(1), interval = QtEventQueue::turnInterval;
    EXPECT_TRUE(handledAfter(none, interval)) << "the first turn";
    EXPECT_FALSE(handledAfter(none)) << "a turn that took long is no reason for the next";
    EXPECT_FALSE(handledAfter(interval - tick));
    EXPECT_TRUE(handledAfter(tick));
    EXPECT_FALSE(handledAfter(interval - tick)) << "the interval counts from the last turn";
    QTimer::singleShot(0, [] {});
    events.wait();
    EXPECT_TRUE(handledAfter(none)) << "the first turn after a wait";
    EXPECT_FALSE(handledAfter(none));
}

TEST(EventQueue, WaitPaintsWhatWasDrawnWithoutAnotherEvent) {
    struct : DrawingSurface {
        int paints = 0;
        void paintEvent(QPaintEvent* event) override {
            ++paints;
            DrawingSurface::paintEvent(event);
        }
    } surface;
    QtEventQueue events;
    surface.show();
    while (surface.paints == 0)
        events.wait();
    events.yield();
    bool rescued = false;
    QTimer::singleShot(5000, &surface, [&rescued] { rescued = true; });
    const std::function<void()> changes[] = {[&] { surface.fillRectangle(0, 0, 9, 9, Qt::white); },
                                             [&] { surface.drawText(0, 0, "1", 9); },
                                             [&] { surface.clear(); }};
    for (const auto& change : changes) {
        surface.paints = 0;
        change();
        events.yield();
        while (surface.paints == 0 && !rescued)
            events.wait();
    }
    EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&surface).isEmpty());
    EXPECT_FALSE(rescued) << "a drawing lay there until something else happened";
}

} // namespace
} // namespace quarvelle
