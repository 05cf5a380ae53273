#pragma once
#include "module/Export.h"
// What the device controller remembers per device between callbacks: which
// devices have had their SIM error screen (so it comes once, until the next
// code request), and which reported a radio held off by its switch (so
// they are never asked about flight mode). Any thread; one lock over both.
#include "Toolkit/Mutex.h"

#include <list>

namespace UIKit {

class UIKIT_API DeviceMarks {
public:
    // True when the device had no init-error mark and now has one.
    bool MarkInitError(unsigned long long id);
    void ClearInitError(unsigned long long id);

    void MarkFlightMode(unsigned long long id);
    bool HasFlightMode(unsigned long long id);

    // Drops both marks of the device.
    void Forget(unsigned long long id);

private:
    Toolkit::Mutex m_lock;
    std::list<unsigned long long> m_initErrors;
    std::list<unsigned long long> m_flightModes;
};

} // namespace UIKit
