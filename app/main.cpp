#include <QApplication>
#include <QIcon>
#include <QTime>

#include "app/Program.h"
#include "widgets/EndRequests.h"
#include "widgets/QtEventQueue.h"

namespace {

float secondsSinceMidnight() {
    return static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0F;
}

/// The icon in the sizes that lists of windows show, if they don't take it from the desktop file.
QIcon windowIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128, 256})
        icon.addFile(QString(":/icon/%1.png").arg(size));
    return icon;
}

} // namespace

int main(int argc, char** argv) {
    quarvelle::EndRequests endRequests;
    QApplication application(argc, argv);
    QApplication::setApplicationName("Quarvelle");
    QApplication::setApplicationVersion(QUARVELLE_VERSION);
    QApplication::setDesktopFileName("quarvelle");
    QApplication::setWindowIcon(windowIcon());
    quarvelle::SeededRandom random(0);
    quarvelle::QtEventQueue events;
    quarvelle::Program program(random, events);
    QObject::connect(&program.window(), &quarvelle::MainWindow::activated, &program.window(),
                     [&random] { random.seed(secondsSinceMidnight()); });
    QObject::connect(&endRequests, &quarvelle::EndRequests::received, &program.window(), &QWidget::close);
    endRequests.watch();
    program.window().show();
    return QApplication::exec();
}
