#pragma once

#include "print/Printer.h"

class QWidget;

namespace quarvelle {

/// The print dialog and the message box of Qt or of the system, over a window.
class QtPrinter final : public Printer {
public:
    /// `window` outlives the printer.
    explicit QtPrinter(QWidget& window) : m_window(window) {}

    /// Paper is landscape unless the person chooses otherwise. "Print to File" gives a PDF file. The sheets,
    /// copies and order chosen in the dialog apply to printers and files alike; on a printer, the print queue
    /// makes the copies and the order. If there is nothing to print on, the dialog isn't shown and the job
    /// fails with a sentence that says so.
    PrintOrder choose(const QString& documentName, int sheets) override;
    void tell(const QString& message) override;

private:
    QWidget& m_window;
};

} // namespace quarvelle
