#pragma once
// The library's module: registered with the base library's module manager
// when the shared object is loaded; Initialize creates the library's
// managers and Release drops them.
#include "Toolkit/LibModule.h"
#include "module/Export.h"

namespace UIKit {

class UIKIT_API LibModule : public Toolkit::LibModule {
public:
    ~LibModule() override = default;
    void Initialize() override;
    void Release() override;
};

} // namespace UIKit

extern "C" {
// The module object; null until DllUIToolkitModuleLoad has run.
UIKIT_API extern Toolkit::LibModule* UIToolkitModule;
UIKIT_API void DllUIToolkitModuleLoad();
UIKIT_API void DllUIToolkitModuleUnload();
}
