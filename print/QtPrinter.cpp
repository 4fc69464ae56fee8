#include "print/QtPrinter.h"

#include <QDir>
#include <QMessageBox>
#include <QOperatingSystemVersion>
#include <QPrintDialog>
#include <QPrinter>

#include "print/PdfFileJob.h"
#include "print/PrintQueue.h"
#include "print/QueueJob.h"
#include "widgets/Dialogs.h"

namespace quarvelle {

namespace {

/// On Windows the dialog is the system's, which has printers only and no PDF files.
bool dialogWritesFiles() {
    return QOperatingSystemVersion::currentType() != QOperatingSystemVersion::Windows;
}

std::unique_ptr<QPrinter> printerFor(const QString& documentName) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(documentName);
    printer->setCreator("Quarvelle");
    printer->setPageOrientation(QPageLayout::Landscape);
    // A printer that can't print that near the edge keeps its own, wider margins.
    printer->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    return printer;
}

/// The order chosen in the dialog, without its job.
PrintOrder orderFor(QPrinter& printer) {
    PrintOrder order;
    order.paper = printer.pageLayout().paintRect(QPageLayout::Millimeter).size();
    order.date = QDate::currentDate();
    if (printer.printRange() == QPrinter::PageRange && !PrintQueue(printer).picksSheets()) {
        order.firstSheet = printer.fromPage();
        order.lastSheet = printer.toPage();
    }
    order.collated = printer.collateCopies();
    (printer.supportsMultipleCopies() ? order.queueCopies : order.copies) = printer.copyCount();
    return order;
}

} // namespace

PrintOrder QtPrinter::choose(const QString& documentName, int sheets) {
    auto printer = printerFor(documentName);
    if (printer->outputFormat() == QPrinter::NativeFormat || dialogWritesFiles()) {
        QPrintDialog dialog(printer.get(), &m_window);
        dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                          QAbstractPrintDialog::PrintPageRange | QAbstractPrintDialog::PrintCollateCopies);
        dialog.setMinMax(1, sheets);
        dialog.setFromTo(1, sheets);
        // The system's own dialog can't be shown otherwise.
        const int answer = dialogWritesFiles() ? answerTo(dialog, m_window) : dialog.exec();
        if (answer != QDialog::Accepted)
            return {};
    }
    PrintOrder order = orderFor(*printer);
    const bool backwards = printer->pageOrder() == QPrinter::LastPageFirst;
    if (printer->outputFormat() == QPrinter::PdfFormat && !printer->outputFileName().isEmpty()) {
        order.backwards = backwards;
        order.destination = "written to " + QDir::toNativeSeparators(printer->outputFileName());
        order.job =
            std::make_unique<PdfFileJob>(printer->outputFileName(), printer->pageLayout(), documentName);
    } else {
        if (backwards)
            PrintQueue(*printer).reverse();
        order.destination = "sent to " + printer->printerName();
        order.job = std::make_unique<QueueJob>(std::move(printer));
    }
    return order;
}

void QtPrinter::tell(const QString& message) {
    QMessageBox box(QMessageBox::Warning, "Quarvelle", message, QMessageBox::Ok, &m_window);
    answerTo(box, m_window);
}

} // namespace quarvelle
