#pragma once
// The library's module: registered with the base library's module manager
// when the shared object is loaded; Initialize creates the library's
// managers and Release drops them.
#include "Toolkit/LibModule.h"

namespace UIKit {

class LibModule : public Toolkit::LibModule {
public:
    ~LibModule() override = default;
    void Initialize() override;
    void Release() override;
};

} // namespace UIKit

extern "C" {
// The module object; null until DllUIToolkitModuleLoad has run.
extern Toolkit::LibModule* UIToolkitModule;
void DllUIToolkitModuleLoad();
void DllUIToolkitModuleUnload();
}
