#pragma once
// A waitable flag shared between threads.
//
// Manual reset: Set() releases every waiter and the object stays signalled
// until Reset(). Automatic reset: each Set() releases exactly one waiter (the
// object returns to non-signalled as that waiter leaves); a Set() with nobody
// waiting leaves the object signalled for the next Wait(), and repeated Set()s
// then count as one.
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace Toolkit {

class EventObject {
public:
    // Wait() without time limit.
    static constexpr unsigned c_infinite = ~0u;

    EventObject(bool manualReset, bool initiallySignalled);
    EventObject(const EventObject&) = delete;
    EventObject& operator=(const EventObject&) = delete;

    void Set();
    void Reset();
    // True when the object was (or became) signalled, false when the time
    // ran out. A zero timeout only tests the object.
    bool Wait(unsigned timeoutMs = c_infinite);
    bool IsManualReset() const { return m_manualReset; }

private:
    bool readyLocked(uint64_t generation) const;
    void consumeLocked();

    const bool m_manualReset;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_signalled;
    // Automatic reset: threads inside Wait(), and Set()s handed to them but
    // not yet taken; releases never exceed waiters.
    unsigned m_waiters = 0;
    unsigned m_releases = 0;
    // Manual reset: counts Set()s, so that a Set() quickly followed by a
    // Reset() still releases the threads that were waiting.
    uint64_t m_generation = 0;
};

} // namespace Toolkit
