#pragma once
// Monotonic milliseconds. Everything in the suite that depends on elapsed
// time reads this clock, and paces itself with Thread::Sleep, so tests can
// replace both and never sleep.
#include <cstdint>
#include <functional>

namespace Toolkit {

uint64_t GetTickCount();

// Replaces the clock; an empty function restores the monotonic clock.
void SetTickSource(std::function<uint64_t()> source);

// Replaces the pause of Thread::Sleep: while a handler is set, Sleep calls
// it with the milliseconds asked for instead of pausing (a fake clock then
// moves its time forward). An empty function restores real pauses. The
// handler is process-wide and also serves other threads' sleeps.
void SetSleepHandler(std::function<void(unsigned)> handler);
// The handler in place, or an empty function.
std::function<void(unsigned)> GetSleepHandler();

} // namespace Toolkit
