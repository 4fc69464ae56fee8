#pragma once

#include "engine/EventQueue.h"
#include "engine/Random.h"
#include "print/QtPrinter.h"
#include "ui/MainWindow.h"

namespace quarvelle {

/// The window with everything that acts on it.
class Program {
public:
    /// Draws from `random` and yields to `events`; both outlive the program.
    Program(RandomSource& random, EventQueue& events);

    MainWindow& window() { return m_window; }

private:
    MainWindow m_window;
    QtPrinter m_printer;
};

} // namespace quarvelle
