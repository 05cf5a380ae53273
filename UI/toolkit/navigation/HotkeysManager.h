#pragma once
#include "module/Export.h"
// Stand-in: only the call the plug-in manager makes on the hot-key manager.
#include "module/Singleton.h"
#include "navigation/IPluginRegistry.h"

namespace UIKit {

class UIKIT_API HotkeysManager : public Singleton<HotkeysManager> {
public:
    // The registry hot keys are dispatched to; null while there is none.
    void SetPluginRegistry(IPluginRegistry* registry) { m_registry = registry; }

private:
    IPluginRegistry* m_registry = nullptr;
};

} // namespace UIKit
