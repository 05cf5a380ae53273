#pragma once
// The registry of loaded modules. The host calls InitializeAll once its
// application object exists and ReleaseAll before it exits; modules are
// initialised in the order they registered and released in reverse.
#include "Toolkit/LibModule.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"

#include <vector>

namespace Toolkit {

class LibModuleManager {
public:
    // Made when the base library is loaded, so modules loaded after it can
    // register from their static constructors; never emptied.
    static smart_ptr<LibModuleManager>* s_pInstance;

    void Register(LibModule* module);
    void Unregister(LibModule* module);
    bool IsRegistered(const LibModule* module);

    void InitializeAll();
    void ReleaseAll();

private:
    Mutex m_lock;
    std::vector<LibModule*> m_modules;
    std::vector<LibModule*> m_initialized;
};

} // namespace Toolkit
