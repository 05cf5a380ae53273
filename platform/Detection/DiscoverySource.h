#pragma once
// Where discovery learns about devices: a backend (the simulated modems
// today, the desktop's modem service later) installed in DiscoveryControl.
#include "Detection/DiscoveryEvent.h"
#include "Toolkit/smart_ptr.h"

namespace Detection {

class DiscoverySource {
public:
    virtual ~DiscoverySource() = default;

    // Starts reporting to sink, limited to the given feature bits. False
    // when the source cannot start.
    virtual bool Start(unsigned int features, Toolkit::smart_ptr<DiscoveryEvent> sink) = 0;
    // Stops reporting; returns once no report is under way.
    virtual void Stop() = 0;
    // Reports again every present device that is not in use (one that was
    // dropped, for instance).
    virtual void Refresh() = 0;
};

} // namespace Detection
