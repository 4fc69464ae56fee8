#include <QCoreApplication>
#include <QTimer>
#include <gtest/gtest.h>

#include "ui/DrawingSurface.h"
#include "ui/QtEventQueue.h"

namespace quarvelle {
namespace {

using Clock = QtEventQueue::Clock;

/// A queue on a clock that stands still, and whether an event that was posted has been handled.
class EventQueueTest : public ::testing::Test {
protected:
    Clock::time_point m_time;
    QtEventQueue m_events{[this] { return m_time; }};
    QObject m_receiver;

    bool yieldHandlesEvents() {
        bool handled = false;
        QMetaObject::invokeMethod(
            &m_receiver, [&handled] { handled = true; }, Qt::QueuedConnection);
        m_events.yield();
        const bool handledByYield = handled;
        QCoreApplication::processEvents();
        EXPECT_TRUE(handled);
        return handledByYield;
    }
};

TEST_F(EventQueueTest, GoesToTheToolkitWhenItsIntervalHasPassed) {
    EXPECT_TRUE(yieldHandlesEvents()) << "the first turn";
    EXPECT_FALSE(yieldHandlesEvents());
    m_time += QtEventQueue::turnInterval - Clock::duration(1);
    EXPECT_FALSE(yieldHandlesEvents());
    m_time += Clock::duration(1);
    EXPECT_TRUE(yieldHandlesEvents());
    EXPECT_FALSE(yieldHandlesEvents()) << "the interval counts from the last turn";
}

TEST_F(EventQueueTest, KnowsWhenATurnOrAWaitEnded) {
    QMetaObject::invokeMethod(
        &m_receiver, [this] { m_time += std::chrono::seconds(1); }, Qt::QueuedConnection);
    m_events.yield();
    EXPECT_FALSE(yieldHandlesEvents()) << "a turn that took long is no reason for the next";
    QTimer::singleShot(0, [] {});
    m_events.wait();
    EXPECT_TRUE(yieldHandlesEvents()) << "the first turn after a wait";
    EXPECT_FALSE(yieldHandlesEvents());
}

class PaintedSurface : public DrawingSurface {
public:
    int m_paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++m_paints;
        DrawingSurface::paintEvent(event);
    }
};

TEST_F(EventQueueTest, WaitPaintsWhatWasDrawnWithoutAnotherEvent) {
    PaintedSurface surface;
    surface.show();
    while (surface.m_paints == 0)
        m_events.wait();
    m_events.yield();
    surface.m_paints = 0;
    bool rescued = false;
    QTimer::singleShot(5000, &surface, [&rescued] { rescued = true; });
    surface.fillRectangle(0, 0, 9, 9, Qt::white);
    m_events.yield();
    while (surface.m_paints == 0 && !rescued)
        m_events.wait();
    EXPECT_FALSE(rescued) << "the drawing lay there until something else happened";
}

} // namespace
} // namespace quarvelle
