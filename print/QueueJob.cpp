#include "print/QueueJob.h"

#include <QDir>
#include <QPrinterInfo>
#include <filesystem>

#include "print/QueueReply.h"
#include "print/SheetPainter.h"

namespace quarvelle {

namespace {

/// The job gathers in the folder for temporary files, where the toolkit doesn't notice a full disk. This many
/// bytes, far more than a sheet and the end of a document take, are left there.
constexpr std::uintmax_t roomKept = std::uintmax_t{4} << 20;

/// Where the room can't be told, there may well be enough.
bool hasRoom() {
    std::error_code error;
    const auto space = std::filesystem::space(QDir::tempPath().toStdString(), error);
    return error || space.available >= roomKept;
}

} // namespace

QueueJob::QueueJob(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {}

QString QueueJob::begin() {
    if (m_printer->printerName().isEmpty())
        return "There is no printer. Set one up in the system's settings, and then print again.";
    if (QPrinterInfo::printerInfo(m_printer->printerName()).isNull())
        return failure("There is no such printer any more");
    return {};
}

QString QueueJob::print(const Sheet& sheet) {
    if (!hasRoom())
        return failure("No space left in " + QDir::tempPath());
    const bool ready = m_painter.isActive() ? m_printer->newPage() : m_painter.begin(m_printer.get());
    if (!ready)
        return failure("It can't be printed on");
    paintSheet(m_painter, sheet);
    return {};
}

QString QueueJob::finish() {
    if (!m_painter.isActive())
        return {};
    if (!m_painter.end())
        return failure("The job could not be ended");
    const QString refusal = lastQueueRefusal();
    return refusal.isEmpty() ? QString() : failure(refusal);
}

QString QueueJob::failure(const QString& reason) const {
    return QString("The printer %1 did not take the sheets: %2.").arg(m_printer->printerName(), reason);
}

} // namespace quarvelle
