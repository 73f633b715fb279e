#include "platform/display/platform_timer.h"

#include <algorithm>

namespace platform {

PlatformTimer::PlatformTimer(QObject* parent) : QObject(parent) {
    clock_.setSingleShot(true);
    clock_.setTimerType(Qt::PreciseTimer);
    connect(&clock_, &QTimer::timeout, this, &PlatformTimer::OnClock);
}

std::chrono::microseconds PlatformTimer::TickedPeriod(int milliseconds) {
    if (milliseconds <= 0) return std::chrono::microseconds(0);
    const auto ticks = (std::chrono::microseconds(std::chrono::milliseconds(milliseconds)) +
                        kPlatformTick - std::chrono::microseconds(1)) /
                       kPlatformTick;
    return ticks * kPlatformTick;
}

void PlatformTimer::SetInterval(int milliseconds) {
    interval_ = milliseconds;
    Start();
}

void PlatformTimer::SetEnabled(bool on) {
    if (on == enabled_) return;
    enabled_ = on;
    Start();
}

void PlatformTimer::Start() {
    clock_.stop();
    if (!enabled_ || interval_ <= 0) return;
    due_ = std::chrono::steady_clock::now() + TickedPeriod(interval_);
    ArmForNextDue();
}

void PlatformTimer::ArmForNextDue() {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(
        due_ - std::chrono::steady_clock::now());
    clock_.start(std::max(wait, std::chrono::milliseconds(0)));
}

bool PlatformTimer::Fire() {
    if (!enabled_ || interval_ <= 0) return false;
    emit Timer();
    return true;
}

void PlatformTimer::OnClock() {
    emit Timer();
    // The handler may have stopped or restarted the timer.
    if (!enabled_ || interval_ <= 0 || clock_.isActive()) return;
    due_ += TickedPeriod(interval_);
    // Ticks missed while the thread was busy come as one, as soon as it can.
    const auto now = std::chrono::steady_clock::now();
    if (due_ < now) due_ = now;
    ArmForNextDue();
}

}  // namespace platform
