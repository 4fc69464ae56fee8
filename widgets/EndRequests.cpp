#include "widgets/EndRequests.h"

#ifdef Q_OS_LINUX
#include <QSocketNotifier>
#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>
#endif

namespace quarvelle {

EndRequests::EndRequests() {
#ifdef Q_OS_LINUX
    sigset_t requests;
    sigemptyset(&requests);
    for (const int request : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&requests, request);
    const int file = signalfd(-1, &requests, SFD_CLOEXEC | SFD_NONBLOCK);
    if (file >= 0 && pthread_sigmask(SIG_BLOCK, &requests, nullptr) == 0)
        m_file = file;
#endif
}

void EndRequests::watch() {
#ifdef Q_OS_LINUX
    if (m_file < 0)
        return;
    const auto* notifier = new QSocketNotifier(m_file, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo request;
        if (read(m_file, &request, sizeof request) == sizeof request)
            emit received();
    });
#endif
}

} // namespace quarvelle
