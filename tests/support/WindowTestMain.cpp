#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
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
