#pragma once
// Monotonic milliseconds. Everything in the suite that depends on elapsed
// time reads this clock, so tests can replace it and never sleep.
#include <cstdint>
#include <functional>

namespace Toolkit {

uint64_t GetTickCount();

// Replaces the clock; an empty function restores the monotonic clock.
void SetTickSource(std::function<uint64_t()> source);

} // namespace Toolkit
