#include <chrono>

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include "platform/counting_wait.h"

using namespace std::chrono_literals;

namespace {

std::chrono::nanoseconds TimeOf(std::int32_t counts) {
    const auto start = std::chrono::steady_clock::now();
    platform::CountingWait(counts);
    return std::chrono::steady_clock::now() - start;
}

}  // namespace

TEST(CountingWait, LastsFiftyNanosecondsPerCount) {
    EXPECT_GE(TimeOf(19999), 1ms);
    EXPECT_GE(TimeOf(199999), 10ms);
    EXPECT_LT(TimeOf(199999), 200ms);
}

TEST(CountingWait, NegativeCountDoesNotWait) { EXPECT_LT(TimeOf(-80000), 1ms); }

TEST(CountingWait, HandlesNoEventsMeanwhile) {
    bool fired = false;
    QTimer::singleShot(0, [&] { fired = true; });
    platform::CountingWait(100000);  // 5 ms
    EXPECT_FALSE(fired);
    QCoreApplication::processEvents();
    EXPECT_TRUE(fired);
}
