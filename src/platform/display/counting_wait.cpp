#include "platform/display/counting_wait.h"

#include <chrono>

namespace platform {

void CountingWait(std::int32_t counts) {
    if (counts < 0) return;
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::nanoseconds((static_cast<std::int64_t>(counts) + 1) * 50);
    while (std::chrono::steady_clock::now() < end) {
    }
}

}  // namespace platform
