// What the benchmarks share: a piece of work timed run after run, the
// spread of the times, and the processor time of the whole process.
#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <vector>

struct Spread {
    double median, p99, p999, best, worst;
};

inline Spread SpreadOf(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    const std::size_t n = times.size();
    return {times[n / 2], times[n * 99 / 100], times[n * 999 / 1000], times.front(), times.back()};
}

// The times of the runs, in the unit asked for (microseconds by default).
template <class Unit = std::micro>
std::vector<double> TimeRuns(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        times.push_back(std::chrono::duration<double, Unit>(std::chrono::steady_clock::now() - start).count());
    }
    return times;
}

inline double ProcessSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}
