#pragma once

#include <QDate>
#include <QRect>
#include <QSizeF>
#include <QString>
#include <limits>
#include <memory>

namespace quarvelle {

class Drawing;

/// A sheet of paper to be.
struct Sheet {
    const Drawing& drawing;
    QRect content;   ///< what a full sheet covers, in the drawing's pixels; it is centred on the paper
    double scale;    ///< a pixel on paper, in millimetres
    QString caption; ///< the small line in the paper's margin
};

/// Sheets on their way to paper or into a file. Each step returns an empty text, or a sentence that tells the
/// person why it failed; the job is over then.
class PrintJob {
public:
    virtual ~PrintJob() = default;

    /// Makes sure that there is somewhere to print to. The first step.
    [[nodiscard]] virtual QString begin() = 0;
    [[nodiscard]] virtual QString print(const Sheet& sheet) = 0;
    /// Ends the job, so that the sheets printed come out; where none was printed, nothing comes. Only now is
    /// it known that they are whole.
    [[nodiscard]] virtual QString finish() = 0;
};

/// What the person asked for in the dialog. Sheets are counted from 1 as they come out when all are printed.
struct PrintOrder {
    std::unique_ptr<PrintJob> job;
    QString destination; ///< "written to" a file or "sent to" a printer
    QSizeF paper;        ///< its printable part, in millimetres
    QDate date;          ///< of printing

    int firstSheet = 1;
    int lastSheet = std::numeric_limits<int>::max();
    bool backwards = false; ///< the last sheet first
    int copies = 1;         ///< how often the batch hands each sheet to the job
    bool collated = true;   ///< copy after copy, not sheet after sheet
    int queueCopies = 1;    ///< how often the printer then prints what it was handed
};

/// What a batch asks and tells the person about printing.
class Printer {
public:
    virtual ~Printer() = default;

    /// How to print a document of that name and so many sheets; no job when the person thinks better of it.
    virtual PrintOrder choose(const QString& documentName, int sheets) = 0;
    virtual void tell(const QString& message) = 0;
};

} // namespace quarvelle
