#include "print/QtPrinter.h"

#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include "print/PdfFileJob.h"
#include "print/QueueJob.h"

namespace quarvelle {

std::unique_ptr<PrintJob> QtPrinter::choose(const QString& documentName) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(documentName);
    printer->setCreator("Quarvelle");
    printer->setPageOrientation(QPageLayout::Landscape);
    // A printer that can't print so near the edge keeps its own, wider margins.
    printer->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    QPrintDialog dialog(printer.get(), &m_window);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    if (printer->outputFormat() == QPrinter::PdfFormat)
        return std::make_unique<PdfFileJob>(printer->outputFileName(), printer->pageLayout(), documentName);
    return std::make_unique<QueueJob>(std::move(printer));
}

void QtPrinter::tellFailure(const QString& reason) {
    QMessageBox::warning(&m_window, "Quarvelle", reason);
}

} // namespace quarvelle
