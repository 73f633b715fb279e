// A timer with the pace of the desktop the program was written for: its clock
// ticks 64 times a second, so an interval is rounded up to a whole number of
// ticks of 15.625 ms. An interval of 0 never fires.
#pragma once

#include <chrono>

#include <QObject>
#include <QTimer>

namespace platform {

constexpr std::chrono::microseconds kPlatformTick{15625};

class PlatformTimer : public QObject {
    Q_OBJECT
public:
    explicit PlatformTimer(QObject* parent = nullptr);

    int Interval() const { return interval_; }
    // Restarts the count when the timer is enabled.
    void SetInterval(int milliseconds);

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on);

    // The period in microseconds that an interval in milliseconds gives.
    static std::chrono::microseconds TickedPeriod(int milliseconds);

    // For tests: ticks once now, without waiting for the clock. When the
    // timer is enabled with an interval above 0, emits Timer() as a tick
    // would and returns true; otherwise does nothing and returns false. The
    // clock's own schedule is left as it stands, unless the handler changes
    // the timer.
    bool Fire();

signals:
    void Timer();

private:
    void Start();
    void ArmForNextDue();
    void OnClock();

    QTimer clock_;
    int interval_ = 0;
    bool enabled_ = true;
    std::chrono::steady_clock::time_point due_;
};

}  // namespace platform
