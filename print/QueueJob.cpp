#include "print/QueueJob.h"

#include <QDir>
#include <QPrinterInfo>

#include "print/PrintQueue.h"
#include "print/SheetPainter.h"

namespace quarvelle {

QueueJob::QueueJob(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {}

QString QueueJob::begin() {
    if (m_printer->printerName().isEmpty())
        return "There is no printer. Set one up in the system's settings, and then print again.";
    if (QPrinterInfo::printerInfo(m_printer->printerName()).isNull())
        return failure("There is no such printer any more");
    return {};
}

QString QueueJob::print(const Sheet& sheet) {
    if (!PrintQueue(*m_printer).hasRoom())
        return failure("No space left in " + QDir::tempPath());
    const bool ready = m_painter.isActive() ? m_printer->newPage() : m_painter.begin(m_printer.get());
    if (!ready)
        return QString("The printer %1 could not be opened.").arg(m_printer->printerName());
    paintSheet(m_painter, sheet);
    return {};
}

QString QueueJob::finish() {
    if (!m_painter.isActive())
        return {};
    if (!m_painter.end())
        return failure("The job could not be ended");
    const QString refusal = PrintQueue(*m_printer).refusal();
    return refusal.isEmpty() ? QString() : failure(refusal);
}

QString QueueJob::failure(const QString& reason) const {
    return QString("The printer %1 did not take the sheets: %2.").arg(m_printer->printerName(), reason);
}

} // namespace quarvelle
