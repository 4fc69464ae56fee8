#include <QApplication>
#include <QTime>

#include "app/Program.h"
#include "ui/QtEventQueue.h"

namespace {

float secondsSinceMidnight() {
    return static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0F;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    quarvelle::SeededRandom random(0);
    quarvelle::QtEventQueue events;
    quarvelle::Program program(random, events);
    QObject::connect(&program.window(), &quarvelle::MainWindow::activated, &program.window(),
                     [&random] { random.seed(secondsSinceMidnight()); });
    program.window().show();
    return QApplication::exec();
}
