#include "print/QueueReply.h"

#include <QLibrary>

namespace quarvelle {

QString lastQueueRefusal() {
    // The toolkit hands a job to the server's own client library and drops the answer, which that library
    // keeps. It is in the process already where the toolkit prints through it.
    constexpr int firstError = 0x0400;
    static QLibrary client("cups", 2);
    using LastError = int (*)();
    using LastErrorText = const char* (*)();
    const auto lastError = reinterpret_cast<LastError>(client.resolve("cupsLastError"));
    const auto lastErrorText = reinterpret_cast<LastErrorText>(client.resolve("cupsLastErrorString"));
    if (lastError == nullptr || lastErrorText == nullptr || lastError() < firstError)
        return {};
    const QString text = QString::fromUtf8(lastErrorText());
    return text.isEmpty() ? QString("error %1").arg(lastError()) : text;
}

} // namespace quarvelle
