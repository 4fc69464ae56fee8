#pragma once

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "print/Printer.h"

namespace quarvelle {

/// Writes sheets into a PDF file. The file appears, or replaces an earlier one, only when the job has
/// finished and every byte has been written.
class PdfFileJob final : public PrintJob {
public:
    PdfFileJob(const QString& fileName, const QPageLayout& layout, const QString& documentName);

    QString begin() override;
    QString print(const Sheet& sheet) override;
    QString finish() override;

private:
    QString failure();

    QSaveFile m_file;
    QPdfWriter m_writer;
    QPainter m_painter; ///< destroyed first, then what it paints on
};

} // namespace quarvelle
