#pragma once

#include "print/Printer.h"

class QWidget;

namespace quarvelle {

/// The platform's own print dialog and message box, over a window.
class QtPrinter final : public Printer {
public:
    /// `window` outlives the printer.
    explicit QtPrinter(QWidget& window) : m_window(window) {}

    /// Landscape paper until the person chooses otherwise. "Print to File" gives a PDF file. Whatever the
    /// dialog offers of sheets, copies and their order holds for printers and files alike; on a printer, the
    /// print queue sees to copies and order. Where there is nothing that the dialog could print on, it isn't
    /// shown, and the job says so.
    PrintOrder choose(const QString& documentName, int sheets) override;
    void tell(const QString& message) override;

private:
    QWidget& m_window;
};

} // namespace quarvelle
