#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "app/Program.h"
#include "board/BoardPage.h"
#include "practice/Titles.h"
#include "ui/MainPage.h"
#include "widgets/QtEventQueue.h"

namespace quarvelle {
namespace {

using Clock = std::chrono::steady_clock;

double median(std::vector<double> seconds) {
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

/// Paints the board that the window shows, as large as a 4K screen does.
double secondsPerPaint(MainWindow& window) {
    window.setWindowState(Qt::WindowNoState);
    window.resize(3840, 2160);
    QCoreApplication::processEvents();
    std::vector<double> seconds(15);
    for (double& paint : seconds) {
        const auto start = Clock::now();
        window.boardPage().repaint();
        paint = std::chrono::duration<double>(Clock::now() - start).count();
    }
    return median(seconds);
}

/// Drags the window's corner, around a screen of 1920 x 1080, and shows the board each time.
double secondsPerResize(MainWindow& window) {
    std::vector<double> seconds(31);
    int pixel = 0;
    for (double& frame : seconds) {
        const auto start = Clock::now();
        ++pixel;
        window.resize(1920 - pixel, 1080 - pixel);
        window.repaint();
        QCoreApplication::processEvents();
        frame = std::chrono::duration<double>(Clock::now() - start).count();
    }
    return median(seconds);
}

/// Ends a run of practice as soon as its first board has been painted.
class FirstBoard final : public QObject, public EventQueue {
public:
    void yield() override { m_events.yield(); }
    void wait() override {
        m_events.wait();
        if (m_painted) {
            m_shown = Clock::now();
            if (m_measuresPaint) {
                m_secondsPerPaint = quarvelle::secondsPerPaint(*m_window);
                m_secondsPerResize = secondsPerResize(*m_window);
            }
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

    /// The same board, painted over and over.
    double secondsPerPaint(MainWindow& window) {
        m_measuresPaint = true;
        secondsToBoard(window);
        m_measuresPaint = false;
        return m_secondsPerPaint;
    }

    /// Once that board has been painted so.
    double secondsPerResizedFrame() const { return m_secondsPerResize; }

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
    double m_secondsPerPaint = 0;
    double m_secondsPerResize = 0;
    bool m_painted = false;
    bool m_measuresPaint = false;
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
    std::puts("order,seconds_to_first_board,seconds_to_board_median,seconds_to_board_longest,"
              "seconds_per_4k_paint,seconds_per_resized_frame,seconds_per_empty_turn");
    const double paint = events.secondsPerPaint(program.window());
    std::printf("%d,%.3g,%.3g,%.3g,%.3g,%.3g,%.3g\n", state.squareSize, seconds.front(), median(seconds),
                *std::max_element(seconds.begin(), seconds.end()), paint, events.secondsPerResizedFrame(),
                events.secondsPerTurn());
    return EXIT_SUCCESS;
}
