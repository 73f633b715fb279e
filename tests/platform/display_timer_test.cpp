#include <chrono>
#include <map>
#include <string>

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
    for (const auto& [interval, period] : {std::pair{0, 0us}, {-5, 0us}, {1, 15625us}, {16, 31250us}, {500, 500000us}})
        EXPECT_EQ(PlatformTimer::TickedPeriod(interval), period) << interval;
}

// The clock's order, not its speed: a short interval comes round before a
// long one, and the timers that may not tick never do.
TEST(PlatformTimer, OnlyAnEnabledTimerWithAnIntervalTicksAHandlerCanStopItAndDoEventsWaitsForTicks) {
    PlatformTimer zero, off, once, slow;
    std::map<std::string, int> ticks;
    for (const auto& [timer, name] : {std::pair{&zero, "zero"}, {&off, "off"}, {&once, "once"}, {&slow, "slow"}})
        QObject::connect(timer, &PlatformTimer::Timer, [&ticks, name = name] { ++ticks[name]; });
    QObject::connect(&once, &PlatformTimer::Timer, [&once] { once.SetEnabled(false); });
    off.SetEnabled(false);
    for (PlatformTimer* timer : {&off, &once}) timer->SetInterval(1);
    slow.SetInterval(100);

    // Each spin waits for the next event; spins that burnt the processor
    // would run out long before the slow timer came round.
    int spins = 0;
    for (; ticks["slow"] == 0 && spins < 1000; ++spins) platform::DoEvents();
    EXPECT_EQ(ticks, (std::map<std::string, int>{{"once", 1}, {"slow", 1}})) << spins << " spins";
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
