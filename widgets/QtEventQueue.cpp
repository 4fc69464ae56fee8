#include "widgets/QtEventQueue.h"

#include <QCoreApplication>

namespace quarvelle {

void QtEventQueue::yield() {
    if (m_now() < m_nextTurn)
        return;
    QCoreApplication::processEvents();
    m_nextTurn = m_now() + turnInterval;
}

void QtEventQueue::wait() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_nextTurn = Clock::time_point::min();
}

} // namespace quarvelle
