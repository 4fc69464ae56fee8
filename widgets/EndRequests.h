#pragma once

#include <QObject>

namespace quarvelle {

/// Says that the system asks the program to end: by a signal (SIGTERM, SIGINT or SIGHUP) on Linux. On Windows
/// the system closes the window itself, and this says nothing.
class EndRequests : public QObject {
    Q_OBJECT

public:
    /// Holds such signals back. To be made before the program has another thread, so before the application.
    EndRequests();
    /// Lets the event loop emit `received` for each signal, those held back first.
    void watch();

signals:
    void received();

private:
    int m_file = -1; ///< tells of the signals; negative where there are none, or they end the program at once
};

} // namespace quarvelle
