// Entry point of the test programs that need a QApplication (forms, pixmaps,
// timers). CTest runs them on the offscreen platform.
#include <gtest/gtest.h>

#include "platform/display/program_application.h"

int main(int argc, char** argv) {
    // The tests' environment is set here rather than by CTest, which lists
    // the tests without it and hands a discovered test one variable only.
    // Without a display the listing would abort; without a private runtime
    // directory Qt warns; and the tests must never sound on a real card.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", DOVRIN_TEST_RUNTIME_DIR);
    if (qEnvironmentVariableIsEmpty("SDL_AUDIODRIVER")) qputenv("SDL_AUDIODRIVER", "dummy");
    ::testing::InitGoogleTest(&argc, argv);
    platform::ProgramApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
