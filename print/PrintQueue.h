#pragma once

#include <QString>

class QPrinter;

namespace quarvelle {

/// The options and answers of the print server that Qt doesn't offer; only this class knows the server's own
/// terms. Where the system has no such server, nothing is picked, there is room, and nothing was refused.
class PrintQueue {
public:
    /// `printer` outlives the object.
    explicit PrintQueue(QPrinter& printer) : m_printer(printer) {}

    /// Whether the queue itself picks the sheets to print from all those it is given, because the person has
    /// listed them in the dialog.
    bool picksSheets() const;
    /// Has the queue print the last sheet first.
    void reverse();
    /// Whether the disk on which jobs are prepared has room for one more sheet and the end of the document;
    /// true if that can't be found out.
    bool hasRoom() const;
    /// Why the server refused the latest job of this thread, in its own words without a full stop; an empty
    /// text if it took it.
    QString refusal() const;

private:
    QPrinter& m_printer;
};

} // namespace quarvelle
