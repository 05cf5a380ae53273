#include "device/DeviceMarks.h"

#include <algorithm>

namespace UIKit {

namespace {
bool contains(const std::list<unsigned long long>& ids, unsigned long long id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}
} // namespace

bool DeviceMarks::MarkInitError(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    if (contains(m_initErrors, id))
        return false;
    m_initErrors.push_back(id);
    return true;
}

void DeviceMarks::ClearInitError(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    m_initErrors.remove(id);
}

void DeviceMarks::MarkFlightMode(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    m_flightModes.push_back(id);
}

bool DeviceMarks::HasFlightMode(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    return contains(m_flightModes, id);
}

void DeviceMarks::Forget(unsigned long long id)
{
    Toolkit::MutexLocker lock(m_lock);
    m_initErrors.remove(id);
    m_flightModes.remove(id);
}

} // namespace UIKit
