#pragma once

#include <QObject>

namespace quarvelle {

class EventQueue;
class MainWindow;
class PrintJob;
class Printer;
class RandomSource;

/// Makes and prints batches: squares, puzzles or both, as many as asked for, until they are done or the
/// person stops them.
class Batch : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window; draws from `random` and yields to `events` while a batch lasts.
    Batch(MainWindow& window, RandomSource& random, EventQueue& events, Printer& printer);

    /// A whole batch; returns when it has ended and the main page is back. Nothing happens for an order above
    /// 101 or numbers that could be taken for blanks. Of a batch that is stopped, the full sheets are
    /// printed.
    void Command1_Click();
    /// Prepares a batch: tidies and reads the settings, measures the board and puts the main page away.
    void mainsub1();

private:
    QString printSquares(PrintJob& job);
    bool makeSquare();
    bool isStopped();
    void closeBatch();

    MainWindow& m_window;
    RandomSource& m_random;
    EventQueue& m_events;
    Printer& m_printer;
};

} // namespace quarvelle
