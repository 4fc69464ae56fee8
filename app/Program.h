#pragma once

#include "engine/EventQueue.h"
#include "engine/Random.h"
#include "print/QtPrinter.h"
#include "ui/MainWindow.h"

namespace quarvelle {

/// The window with everything that acts on it.
class Program {
public:
    /// Draws from `random`, yields to `events` and prints through `printer`, which outlive the program. If
    /// `printer` is null, it prints through the platform's dialog.
    Program(RandomSource& random, EventQueue& events, Printer* printer = nullptr);

    MainWindow& window() { return m_window; }

private:
    MainWindow m_window;
    QtPrinter m_platformPrinter;
};

} // namespace quarvelle
