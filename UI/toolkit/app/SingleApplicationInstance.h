#pragma once
#include "module/Export.h"
// Detects a second start of the application and lets it bring the first
// one's window to the front over the inter-process channel.
//
// Expected use at start-up, after module initialisation: if
// IsAlreadyRunning(), call BringPreviousInstanceToFront() and end the
// process; otherwise call SetAsActiveInstance() and go on.
#include "Toolkit/IPCConnectionEvent.h"
#include "Toolkit/IPCServer.h"
#include "module/Singleton.h"

namespace UIKit {

class UIKIT_API SingleApplicationInstance : public Singleton<SingleApplicationInstance> {
public:
    SingleApplicationInstance();
    ~SingleApplicationInstance();

    bool IsAlreadyRunning() const;
    // Starts listening so that later starts can reach this process.
    bool SetAsActiveInstance();
    // Sends "IPC_ACTIVATE" to the running instance; whether it was delivered.
    bool BringPreviousInstanceToFront() const;

private:
    Toolkit::smart_ptr<Toolkit::IPCServer> m_server;
    Toolkit::smart_ptr<Toolkit::IPCConnectionEvent> m_handler;
};

} // namespace UIKit
