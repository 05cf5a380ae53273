#include "Toolkit/EventObject.h"

#include <chrono>

namespace Toolkit {

EventObject::EventObject(bool manualReset, bool initiallySignalled)
    : m_manualReset(manualReset), m_signalled(initiallySignalled)
{
}

void EventObject::Set()
{
    std::lock_guard lock(m_mutex);
    if (m_manualReset) {
        m_signalled = true;
        ++m_generation;
        m_changed.notify_all();
        return;
    }
    if (m_waiters > m_releases) {
        // Hand this Set() to one waiter; the object itself stays clear.
        ++m_releases;
        m_changed.notify_one();
    } else {
        m_signalled = true;
    }
}

void EventObject::Reset()
{
    std::lock_guard lock(m_mutex);
    m_signalled = false;
}

bool EventObject::readyLocked(uint64_t generation) const
{
    if (m_manualReset)
        return m_signalled || m_generation != generation;
    return m_releases > 0 || m_signalled;
}

void EventObject::consumeLocked()
{
    if (m_manualReset)
        return;
    if (m_releases > 0)
        --m_releases;
    else
        m_signalled = false;
}

bool EventObject::Wait(unsigned timeoutMs)
{
    std::unique_lock lock(m_mutex);
    const uint64_t generation = m_generation;
    if (readyLocked(generation)) {
        consumeLocked();
        return true;
    }
    if (timeoutMs == 0)
        return false;

    ++m_waiters;
    const auto ready = [&] { return readyLocked(generation); };
    bool released;
    if (timeoutMs == c_infinite) {
        m_changed.wait(lock, ready);
        released = true;
    } else {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
        released = m_changed.wait_until(lock, deadline, ready);
    }
    --m_waiters;
    if (released)
        consumeLocked();
    return released;
}

} // namespace Toolkit
