#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "app/Program.h"
#include "practice/Titles.h"
#include "ui/BoardPage.h"
#include "ui/MainPage.h"
#include "ui/QtEventQueue.h"

namespace quarvelle {
namespace {

using Clock = std::chrono::steady_clock;

/// Ends a run of practice as soon as its first board has been painted.
class FirstBoard final : public QObject, public EventQueue {
public:
    void yield() override { m_events.yield(); }
    void wait() override {
        m_events.wait();
        if (m_painted) {
            m_shown = Clock::now();
            m_window->state().stopRequested = Request::stop;
        }
    }
    bool eventFilter(QObject*, QEvent* event) override {
        m_painted = m_painted || (event->type() == QEvent::Paint &&
                                  m_window->windowTitle().toStdString() == scoreTitle(m_window->state()));
        return false;
    }

    /// From a click on the practice button to the painted board, in seconds.
    double secondsToBoard(MainWindow& window) {
        m_window = &window;
        m_painted = false;
        window.boardPage().installEventFilter(this);
        const auto clicked = Clock::now();
        window.mainPage().controls().Command4->click();
        window.boardPage().removeEventFilter(this);
        return std::chrono::duration<double>(m_shown - clicked).count();
    }

    double secondsPerTurn() {
        constexpr int turns = 1000000;
        const auto start = Clock::now();
        for (int turn = 0; turn < turns; ++turn)
            yield();
        return std::chrono::duration<double>(Clock::now() - start).count() / turns;
    }

private:
    QtEventQueue m_events;
    MainWindow* m_window = nullptr;
    Clock::time_point m_shown;
    bool m_painted = false;
};

} // namespace
} // namespace quarvelle

int main(int argc, char** argv) {
    using namespace quarvelle;
    QApplication application(argc, argv);
    SeededRandom random(1);
    FirstBoard events;
    Program program(random, events);
    program.window().show();
    QCoreApplication::processEvents();
    ProgramState& state = program.window().state();
    state.squareSize = 29;
    state.allDiagonals = 1;
    program.window().mainPage().controls().Text3->setProgramText("841");
    std::vector<double> seconds(15);
    for (double& run : seconds) {
        run = events.secondsToBoard(program.window());
        QCoreApplication::processEvents();
    }
    const double first = seconds.front();
    std::sort(seconds.begin(), seconds.end());
    std::puts("order,seconds_to_first_board,seconds_to_board_median,seconds_to_board_longest,"
              "seconds_per_empty_turn");
    std::printf("%d,%.3g,%.3g,%.3g,%.3g\n", state.squareSize, first, seconds[seconds.size() / 2],
                seconds.back(), events.secondsPerTurn());
    return EXIT_SUCCESS;
}
