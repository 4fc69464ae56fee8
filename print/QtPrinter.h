#pragma once

#include "print/Printer.h"

class QWidget;

namespace quarvelle {

/// The platform's own print dialog and message box, over a window.
class QtPrinter final : public Printer {
public:
    /// `window` outlives the printer.
    explicit QtPrinter(QWidget& window) : m_window(window) {}

    /// Landscape paper until the person chooses otherwise. "Print to File" gives a PDF file.
    std::unique_ptr<PrintJob> choose(const QString& documentName) override;
    void tellFailure(const QString& reason) override;

private:
    QWidget& m_window;
};

} // namespace quarvelle
