#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "tests/robot/Robot.h"
#include "tests/support/QtWarnings.h"

/// robot STEPS SEED
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const long steps = argc > 1 ? std::atol(argv[1]) : 100000;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::atol(argv[2]) : 1);
    quarvelle::testing::Robot robot(seed);
    quarvelle::testing::onQtWarning([&robot](const QString& text) { robot.fail(text.toStdString()); });
    const int failures = robot.run(steps);
    std::printf("robot: %ld steps, %d failures\n", steps, failures);
    return failures == 0 ? 0 : 1;
}
