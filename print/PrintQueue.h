#pragma once

#include <QString>

class QPrinter;

namespace quarvelle {

/// What Qt keeps to itself of the print server's queue: the one place that knows the server's own words.
/// Where the system has no such server it answers that nothing is special.
class PrintQueue {
public:
    /// `printer` outlives the object.
    explicit PrintQueue(QPrinter& printer) : m_printer(printer) {}

    /// Whether the queue itself picks the sheets to print out of all that it is handed, because the person
    /// has listed them.
    bool picksSheets() const;
    /// Has the queue turn the order of the sheets round.
    void reverse();
    /// Whether there is room where jobs gather on their way to the queue, for a sheet and the end of a
    /// document. Where that can't be told, there may well be.
    bool hasRoom() const;
    /// Why the server did not take the job that this thread gave it last, in its own words without a full
    /// stop; an empty text if it did.
    QString refusal() const;

private:
    QPrinter& m_printer;
};

} // namespace quarvelle
