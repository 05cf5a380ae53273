#pragma once
// Process-wide discovery: one source, one list of listeners. Reports from
// the source reach every listener, in order of registration, on the
// source's thread. Every operation may be called from any thread.
#include "Detection/DiscoveryEvent.h"
#include "Detection/DiscoverySource.h"
#include "Toolkit/smart_ptr.h"

namespace Detection {

class DiscoveryControl {
public:
    // Installs the backend; a null source removes it. Refused (false) while
    // discovery runs.
    static bool SetSource(Toolkit::smart_ptr<DiscoverySource> source);

    static void AddEventListener(Toolkit::smart_ptr<DiscoveryEvent> listener);
    // Removes the first registration of this object.
    static void RemoveEventListener(Toolkit::smart_ptr<DiscoveryEvent> listener);

    // Starts the source with the features wanted (bits; 0xFFFFFFFF for
    // every feature). False (logged) without a source, or when it fails.
    static bool Start(unsigned int features);
    static void Stop();
    static bool IsStarted();
    static void Refresh();
};

} // namespace Detection
