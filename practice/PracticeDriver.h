#pragma once

#include <QObject>

namespace quarvelle {

class EventQueue;
class MainWindow;
class RandomSource;

/// Carries out practice runs: square after square is built, blanked, shown and played until the player stops.
class PracticeDriver : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window; draws from `random` and yields to `events` while a run lasts.
    PracticeDriver(MainWindow& window, RandomSource& random, EventQueue& events);

    /// A whole run; returns when it has ended and the main page is back, at once for a square that doesn't
    /// fit on the board or has numbers that could be taken for blanks.
    void Command4_Click();

private:
    void openRun();
    bool playSquare();
    bool makePuzzle();
    void showPuzzle();
    bool waitForPlayer();
    void closeSquare();
    void closeRun();

    MainWindow& m_window;
    RandomSource& m_random;
    EventQueue& m_events;
    bool m_solved = false; ///< the last square of this run was
};

} // namespace quarvelle
