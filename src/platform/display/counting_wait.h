// The pause between two positions of a flying card.
#pragma once

#include <cstdint>

namespace platform {

// Busy-waits (counts + 1) x 50 ns on a steady clock, handling no events;
// a negative count doesn't wait. 0 is the shortest wait.
void CountingWait(std::int32_t counts);

}  // namespace platform
