#include "ui/QtEventQueue.h"

#include <QCoreApplication>

namespace quarvelle {

void QtEventQueue::yield() {
    QCoreApplication::processEvents();
}

void QtEventQueue::wait() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace quarvelle
