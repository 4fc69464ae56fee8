#pragma once

class QPrinter;

namespace quarvelle {

/// Whether the print queue itself picks the sheets to print out of all that it is handed, because the person
/// has listed them.
bool queuePicksSheets(const QPrinter& printer);

/// Has the print queue turn the order of the sheets round. Does nothing where the system has no print server
/// that could.
void askQueueForReverse(QPrinter& printer);

} // namespace quarvelle
