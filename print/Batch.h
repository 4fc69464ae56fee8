#pragma once

#include <QObject>
#include <QString>

namespace quarvelle {

class EventQueue;
class MainWindow;
class Printer;
class RandomSource;
class Sheets;

/// Makes and prints batches: squares, puzzles or both, as many as asked for, until they are done or the
/// person stops them.
class Batch : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window; draws from `random` and yields to `events` while a batch lasts.
    Batch(MainWindow& window, RandomSource& random, EventQueue& events, Printer& printer);

    /// A whole batch; returns when it has ended, the main page is back and the person has been told how it
    /// went. Does nothing for an order above 101. If the batch is stopped, the sheets that were full are
    /// printed.
    void Command1_Click();
    /// Prepares a batch: reads the settings, measures the board and shows the board page.
    void mainsub1();
    /// "Abort printing" was chosen.
    void aprinting_Click();

private:
    struct Outcome {
        QString message; ///< for the person to read before going on, or empty
        QString ending;  ///< how the batch ended, for the foot line
    };

    Outcome print();
    QString printSquares(Sheets& sheets);
    bool makeSquare();
    bool isStopped();
    void closeBatch();

    MainWindow& m_window;
    RandomSource& m_random;
    EventQueue& m_events;
    Printer& m_printer;
};

} // namespace quarvelle
