#include "print/PrintQueue.h"

#include <QDir>
#include <QLibrary>
#include <QPrintEngine>
#include <QPrinter>
#include <QStorageInfo>
#include <QStringList>

namespace quarvelle {

namespace {

/// The property in which Qt and its dialog keep the options for the print server: name, value, name, value.
constexpr auto serverOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

} // namespace

bool PrintQueue::picksSheets() const {
    return m_printer.printEngine()->property(serverOptions).toStringList().contains("page-ranges");
}

void PrintQueue::reverse() {
    // Qt's dialog offers the reverse order, but Qt doesn't pass it on.
    QStringList options = m_printer.printEngine()->property(serverOptions).toStringList();
    options << "outputorder"
            << "reverse";
    m_printer.printEngine()->setProperty(serverOptions, options);
}

bool PrintQueue::hasRoom() const {
    // Far more than a sheet takes. This is checked here because Qt doesn't notice a full disk.
    constexpr qint64 roomKept = qint64{4} << 20;
    const QStorageInfo storage(QDir::tempPath());
    return !storage.isValid() || storage.bytesAvailable() >= roomKept;
}

QString PrintQueue::refusal() const {
    // Qt gives a job to the server's client library and ignores the answer, but the library remembers it.
    // Where Qt prints that way, the library is loaded already.
    constexpr int firstError = 0x0400;
    static QLibrary client("cups", 2);
    using LastError = int (*)();
    using LastErrorText = const char* (*)();
    const auto lastError = reinterpret_cast<LastError>(client.resolve("cupsLastError"));
    const auto lastErrorText = reinterpret_cast<LastErrorText>(client.resolve("cupsLastErrorString"));
    if (lastError == nullptr || lastErrorText == nullptr || lastError() < firstError)
        return {};
    QString text = QString::fromUtf8(lastErrorText());
    if (text.endsWith('.'))
        text.chop(1);
    return text.isEmpty() ? QString("error %1").arg(lastError()) : text;
}

} // namespace quarvelle
