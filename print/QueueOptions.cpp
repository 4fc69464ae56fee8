#include "print/QueueOptions.h"

#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>

namespace quarvelle {

namespace {

/// Where the toolkit and its dialog keep what they will ask of the print server: names and values in turn.
constexpr auto serverOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

} // namespace

bool queuePicksSheets(const QPrinter& printer) {
    return printer.printEngine()->property(serverOptions).toStringList().contains("page-ranges");
}

void askQueueForReverse(QPrinter& printer) {
    // The toolkit's dialog offers it, and the toolkit forgets to ask for it.
    QStringList options = printer.printEngine()->property(serverOptions).toStringList();
    options << "outputorder"
            << "reverse";
    printer.printEngine()->setProperty(serverOptions, options);
}

} // namespace quarvelle
