#pragma once

#include <QDate>
#include <QRect>
#include <QSizeF>
#include <QString>
#include <limits>
#include <memory>

namespace quarvelle {

class Drawing;

/// A sheet to be printed.
struct Sheet {
    const Drawing& drawing;
    QRect content;   ///< the area of a full sheet, in the drawing's pixels; it is centred on the paper
    double scale;    ///< the size of a pixel on paper, in millimetres
    QString caption; ///< the small line below
};

/// Prints sheets on paper or into a file. Each step returns an empty text, or a sentence that tells the
/// person why it failed; the job is over then.
class PrintJob {
public:
    virtual ~PrintJob() = default;

    /// Makes sure that there is somewhere to print to. The first step.
    [[nodiscard]] virtual QString begin() = 0;
    [[nodiscard]] virtual QString print(const Sheet& sheet) = 0;
    /// Ends the job, so that the sheets printed come out; if there were none, nothing comes. Only success
    /// here means that all of them were printed whole.
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
    int copies = 1;         ///< how often the batch gives each sheet to the job
    bool collated = true;   ///< all sheets once, then again; otherwise all copies of one sheet, then the next
    int queueCopies = 1;    ///< how often the printer then prints what it is given
};

/// What a batch asks and tells the person about printing.
class Printer {
public:
    virtual ~Printer() = default;

    /// Asks how to print a document of that name and number of sheets. There is no job if the person cancels.
    virtual PrintOrder choose(const QString& documentName, int sheets) = 0;
    /// Shows a message until the person has read it.
    virtual void tell(const QString& message) = 0;
};

} // namespace quarvelle
