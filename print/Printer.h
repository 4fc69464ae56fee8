#pragma once

#include <QRect>
#include <QString>
#include <memory>

namespace quarvelle {

class Drawing;

/// A sheet of paper to be, in pixels of the drawing surface.
struct Sheet {
    const Drawing& drawing;
    QRect frame;     ///< what is scaled to fill the paper
    QRect content;   ///< what a full sheet covers; it is centred on the paper
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

/// What a batch asks and tells the person about printing.
class Printer {
public:
    virtual ~Printer() = default;

    /// Where to print a document of that name; nothing when the person thinks better of it.
    virtual std::unique_ptr<PrintJob> choose(const QString& documentName) = 0;
    virtual void tellFailure(const QString& reason) = 0;
};

} // namespace quarvelle
