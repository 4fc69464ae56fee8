#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nowhere"); // so that no job is ever taken
    QApplication application(argc, argv);
    // As where a screen reader runs.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    // Windows come and go between tests; none of them ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        // The offscreen platform says what it can't do.
        if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith("This plugin does not support"))
            ADD_FAILURE() << text.toStdString();
    });
    const int result = RUN_ALL_TESTS();
    std::fputs(qPrintable(application.property("closingLine").toString()), stdout);
    return result;
}
