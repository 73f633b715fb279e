#pragma once

namespace platform {

// Lets the window system and the timers run: handles what is pending, and
// when nothing is, waits for the next event (at most one platform tick), so
// that a loop spinning on it doesn't burn the processor.
void DoEvents();

}  // namespace platform
