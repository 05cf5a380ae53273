#pragma once
// Lets through at most one log entry per interval (GetTickCount time), and
// counts the entries held back in between, so that whatever floods a
// source of log entries cannot flood the log.
#include <cstddef>
#include <cstdint>

namespace Toolkit {

class LogThrottle {
public:
    explicit LogThrottle(uint64_t intervalMs) : m_intervalMs(intervalMs) {}

    // True when an entry may be written now; `heldBack` is then the number
    // of entries held back since the last one written.
    bool Allow(size_t& heldBack);

private:
    uint64_t m_intervalMs;
    uint64_t m_next = 0;
    bool m_started = false;
    size_t m_heldBack = 0;
};

} // namespace Toolkit
