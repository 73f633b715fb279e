// Entry point of the test programs that need a QApplication (forms, pixmaps,
// timers). CTest runs them on the offscreen platform.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
