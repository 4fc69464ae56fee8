#pragma once

#include <QPainter>
#include <QPrinter>

#include "print/Printer.h"

namespace quarvelle {

/// Prints sheets on a printer of the system, as one print job. What was printed before a failure still comes
/// out.
class QueueJob final : public PrintJob {
public:
    explicit QueueJob(std::unique_ptr<QPrinter> printer);

    QString begin() override;
    QString print(const Sheet& sheet) override;
    QString finish() override;

private:
    QString failure(const QString& reason) const;

    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter; ///< destroyed before the printer, which ends the job
};

} // namespace quarvelle
