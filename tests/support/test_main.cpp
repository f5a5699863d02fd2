// main() of every test program: an application object and a home of its own.
#include "tests/support/test_home.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const vellum::test::TestHome home;
    QApplication application(argc, argv);
    QApplication::setApplicationName("vellumcraft-tests");
    return RUN_ALL_TESTS();
}
