#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>

#include "tests/support/QtWarnings.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // Windows come and go between tests; none of them ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    quarvelle::testing::onQtWarning([](const QString& text) { ADD_FAILURE() << text.toStdString(); });
    const int result = RUN_ALL_TESTS();
    std::fputs(qPrintable(application.property("closingLine").toString()), stdout);
    return result;
}
