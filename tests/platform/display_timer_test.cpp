#include <chrono>

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include "platform/display/counting_wait.h"
#include "platform/display/do_events.h"
#include "platform/display/platform_timer.h"

using namespace std::chrono_literals;
using platform::PlatformTimer;

namespace {

TEST(PlatformTimer, IntervalsRoundUpToWholeTicksOfTheDesktopsClock) {
    for (const auto& [interval, period] : {std::pair{0, 0us}, {-5, 0us}, {1, 15625us}, {15, 15625us}, {16, 31250us},
                                           {70, 78125us}, {500, 500000us}, {5000, 5000000us}})
        EXPECT_EQ(PlatformTimer::TickedPeriod(interval), period) << interval;
}

// The clock's order, not its speed: a short interval comes round before a
// long one, and the timers that may not tick never do.
TEST(PlatformTimer, OnlyAnEnabledTimerWithAnIntervalTicksAHandlerCanStopItAndDoEventsWaitsForTicks) {
    PlatformTimer zero, disabled, once, fast, slow;
    int silentTicks = 0, onceTicks = 0, fastTicks = 0, slowTicks = 0;
    for (PlatformTimer* timer : {&zero, &disabled})
        QObject::connect(timer, &PlatformTimer::Timer, [&] { ++silentTicks; });
    QObject::connect(&once, &PlatformTimer::Timer, [&] {
        ++onceTicks;
        once.SetEnabled(false);
    });
    QObject::connect(&fast, &PlatformTimer::Timer, [&] { ++fastTicks; });
    QObject::connect(&slow, &PlatformTimer::Timer, [&] { ++slowTicks; });
    disabled.SetEnabled(false);
    for (PlatformTimer* timer : {&disabled, &once, &fast}) timer->SetInterval(1);
    slow.SetInterval(100);

    // Each spin waits for the next event; spins that burnt the processor
    // would run out long before the slow timer came round.
    int spins = 0;
    for (; slowTicks == 0 && spins < 1000; ++spins) platform::DoEvents();
    ASSERT_EQ(slowTicks, 1) << spins << " spins";
    EXPECT_GE(fastTicks, 1);
    EXPECT_EQ(silentTicks, 0);
    EXPECT_EQ(onceTicks, 1);
}

TEST(CountingWait, WaitsAtLeastFiftyNanosecondsPerCountAndHandlesNoEventsMeanwhile) {
    bool fired = false;
    QTimer::singleShot(0, [&] { fired = true; });
    const auto start = std::chrono::steady_clock::now();
    platform::CountingWait(199999);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 10ms);
    EXPECT_FALSE(fired);
    QCoreApplication::processEvents();
    EXPECT_TRUE(fired);
}

}  // namespace
