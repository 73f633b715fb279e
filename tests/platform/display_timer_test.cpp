#include <chrono>
#include <ctime>

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include "platform/display/counting_wait.h"
#include "platform/display/do_events.h"
#include "platform/display/platform_timer.h"

using namespace std::chrono_literals;
using platform::DoEvents;
using platform::PlatformTimer;

namespace {

// Spins on DoEvents until done() or the time is up.
template <class Done>
void SpinUntil(Done done, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!done() && std::chrono::steady_clock::now() < end) DoEvents();
}

TEST(PlatformTimer, IntervalsRoundUpToWholeTicks) {
    EXPECT_EQ(PlatformTimer::TickedPeriod(0), 0us);
    EXPECT_EQ(PlatformTimer::TickedPeriod(1), 15625us);
    EXPECT_EQ(PlatformTimer::TickedPeriod(15), 15625us);
    EXPECT_EQ(PlatformTimer::TickedPeriod(16), 31250us);
    EXPECT_EQ(PlatformTimer::TickedPeriod(70), 78125us);
    EXPECT_EQ(PlatformTimer::TickedPeriod(500), 500000us);
}

TEST(PlatformTimer, TwentyTicksOfOneMillisecondTakeAThirdOfASecondWithoutBurning) {
    PlatformTimer timer;
    int ticks = 0;
    QObject::connect(&timer, &PlatformTimer::Timer, [&] { ++ticks; });
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpuStart = std::clock();
    timer.SetInterval(1);
    SpinUntil([&] { return ticks >= 20; }, 3000ms);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    const double cpuSeconds = double(std::clock() - cpuStart) / CLOCKS_PER_SEC;

    ASSERT_EQ(ticks, 20);
    EXPECT_GE(elapsed, 312ms);
    EXPECT_LT(elapsed, 1500ms);
    EXPECT_LT(cpuSeconds, 0.5 * std::chrono::duration<double>(elapsed).count());
}

TEST(PlatformTimer, ZeroIntervalOrDisabledNeverFiresAndAHandlerThatDisablesGetsOneTick) {
    PlatformTimer zero;
    PlatformTimer disabled;
    PlatformTimer once;
    int ticks = 0;
    int onceTicks = 0;
    QObject::connect(&zero, &PlatformTimer::Timer, [&] { ++ticks; });
    QObject::connect(&disabled, &PlatformTimer::Timer, [&] { ++ticks; });
    QObject::connect(&once, &PlatformTimer::Timer, [&] {
        ++onceTicks;
        once.SetEnabled(false);
    });
    zero.SetInterval(0);
    disabled.SetInterval(1);
    disabled.SetEnabled(false);
    once.SetInterval(1);
    SpinUntil([] { return false; }, 100ms);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(onceTicks, 1);
    EXPECT_FALSE(once.Enabled());
}

std::chrono::nanoseconds TimeOf(std::int32_t counts) {
    const auto start = std::chrono::steady_clock::now();
    platform::CountingWait(counts);
    return std::chrono::steady_clock::now() - start;
}

TEST(CountingWait, LastsFiftyNanosecondsPerCountAndHandlesNoEventsMeanwhile) {
    EXPECT_GE(TimeOf(19999), 1ms);
    EXPECT_LT(TimeOf(-80000), 1ms);
    bool fired = false;
    QTimer::singleShot(0, [&] { fired = true; });
    const auto waited = TimeOf(199999);
    EXPECT_GE(waited, 10ms);
    EXPECT_LT(waited, 200ms);
    EXPECT_FALSE(fired);
    QCoreApplication::processEvents();
    EXPECT_TRUE(fired);
}

}  // namespace
