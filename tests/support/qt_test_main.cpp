// Entry point of the test programs that need a QApplication (forms, pixmaps,
// timers). CTest runs them on the offscreen platform.
#include <gtest/gtest.h>

#include "platform/display/program_application.h"

int main(int argc, char** argv) {
    // CTest lists the tests without the test environment: without a display
    // the listing would abort, so the offscreen platform is the default.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    platform::ProgramApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
