// The connection manager. For now it brings the library's module up and
// down and reports what it did; screens arrive with the frame work.
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "module/LibModule.h"

#include <wx/init.h>

#include <cstdio>

int main(int argc, char** argv)
{
    wxInitializer wx(argc, argv);
    if (!wx.IsOk()) {
        std::fprintf(stderr, "connection-manager: cannot initialise wxWidgets\n");
        return 1;
    }
    auto modules = *Toolkit::LibModuleManager::s_pInstance;
    const bool registered = modules->IsRegistered(UIToolkitModule);
    modules->InitializeAll();
    std::printf("connection-manager: UIKit module %s and initialised.\n",
                registered ? "registered" : "NOT registered");
    std::printf("connection-manager: no appearance pack loaded yet; nothing to show. Releasing.\n");
    modules->ReleaseAll();
    return registered ? 0 : 1;
}
