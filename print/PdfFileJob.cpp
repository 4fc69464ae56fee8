#include "print/PdfFileJob.h"

#include "print/SheetPainter.h"

namespace quarvelle {

PdfFileJob::PdfFileJob(const QString& fileName, const QPageLayout& layout, const QString& documentName)
    : m_file(fileName), m_writer(&m_file) {
    m_writer.setPageLayout(layout);
    m_writer.setTitle(documentName);
    m_writer.setCreator("Quarvelle");
}

QString PdfFileJob::begin() {
    return m_file.open(QIODevice::WriteOnly) ? QString() : failure();
}

QString PdfFileJob::print(const Sheet& sheet) {
    const bool ready = m_painter.isActive() ? m_writer.newPage() : m_painter.begin(&m_writer);
    if (ready)
        paintSheet(m_painter, sheet);
    return ready && m_file.error() == QFileDevice::NoError ? QString() : failure();
}

QString PdfFileJob::finish() {
    if (!m_painter.isActive()) {
        m_file.cancelWriting();
        return {};
    }
    // The painter doesn't notice a failed write, and committing writes the last bytes without checking them.
    // So they are flushed and checked first.
    m_painter.end();
    const bool whole = m_file.flush() && m_file.error() == QFileDevice::NoError;
    if (!whole) {
        QString reason = failure();
        m_file.cancelWriting();
        return reason;
    }
    return m_file.commit() ? QString() : failure();
}

QString PdfFileJob::failure() {
    // A write that was only partly done gives no reason; another try does.
    if (m_file.isOpen())
        m_file.flush();
    return QString("The file %1 could not be written: %2.").arg(m_file.fileName(), m_file.errorString());
}

} // namespace quarvelle
