#include "Toolkit/LogThrottle.h"

#include "Toolkit/TickCount.h"

namespace Toolkit {

bool LogThrottle::Allow(size_t& heldBack)
{
    const uint64_t now = GetTickCount();
    if (m_started && now < m_next) {
        ++m_heldBack;
        return false;
    }
    heldBack = m_heldBack;
    m_heldBack = 0;
    m_next = now + m_intervalMs;
    m_started = true;
    return true;
}

} // namespace Toolkit
