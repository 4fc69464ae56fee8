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

    /// A whole batch; returns when it has ended, the main page is back and the person knows how it went.
    /// Nothing happens for an order above 101. Of a batch that is stopped, the full sheets are printed.
    void Command1_Click();
    /// Prepares a batch: tidies and reads the settings, measures the board and puts the main page away.
    void mainsub1();
    /// "Abort printing".
    void aprinting_Click();

private:
    struct Outcome {
        QString message; ///< for the person to read before going on, or empty
        QString ending;  ///< the word at the end
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
