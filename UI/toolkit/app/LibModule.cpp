#include "app/LibModule.h"

#include "Toolkit/LibModuleManager.h"
#include "module/SingletonTable.h"

Toolkit::LibModule* UIToolkitModule = nullptr;

namespace UIKit {

void LibModule::Initialize()
{
    SingletonTable::Library().CreateAll();
}

void LibModule::Release()
{
    SingletonTable::Library().ReleaseAll();
}

} // namespace UIKit

extern "C" void DllUIToolkitModuleLoad()
{
    if (UIToolkitModule)
        return;
    UIToolkitModule = new UIKit::LibModule();
    auto manager = *Toolkit::LibModuleManager::s_pInstance;
    manager->Register(UIToolkitModule);
}

extern "C" void DllUIToolkitModuleUnload()
{
    auto manager = *Toolkit::LibModuleManager::s_pInstance;
    manager->Unregister(UIToolkitModule);
    manager.ReleaseRef();
    delete UIToolkitModule;
    UIToolkitModule = nullptr;
}

namespace {

// Loading the shared object registers the module; unloading unregisters it.
__attribute__((constructor)) void loadModule() { DllUIToolkitModuleLoad(); }
__attribute__((destructor)) void unloadModule() { DllUIToolkitModuleUnload(); }

} // namespace
