#pragma once

#include <QObject>

namespace quarvelle {

class EventQueue;
class MainWindow;
class RandomSource;

/// Carries out runs of practice: makes, shows and lets solve one puzzle after another until the player stops.
class PracticeDriver : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of the window; draws from `random` and yields to `events` while a run lasts.
    PracticeDriver(MainWindow& window, RandomSource& random, EventQueue& events);

    /// A whole run; returns when it has ended and the main page is back. It ends at once if the square
    /// doesn't fit the board or has numbers that could be taken for blanks.
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
    bool m_solved = false; ///< whether the previous square of this run was solved
};

} // namespace quarvelle
