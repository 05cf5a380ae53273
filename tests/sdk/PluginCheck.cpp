// Loads the plug-ins of the plug-in directory named by the first argument,
// with the filter given as the second, through the library's loader, and
// succeeds when exactly one loads and activates. Run after the SDK test has
// built a plug-in out of tree.
#include "Toolkit/PathManager.h"
#include "plugins/PluginLoader.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s PLUGIN_DIR FILTER\n", argv[0]);
        return 2;
    }
    Toolkit::PathManager::Instance().SetPluginsDir(argv[1]);
    UIKit::PluginParameters parameters{Toolkit::smart_ptr<UIKit::Appearance>()};
    const std::string filter = argv[2];
    UIKit::PluginLoader loader(parameters, {TString<wchar_t>(filter.begin(), filter.end())});
    if (loader.Load() != 1 || !loader.GetPlugins().front()->Activate()) {
        std::fprintf(stderr, "the plug-in built from the SDK did not load\n");
        return 1;
    }
    std::printf("loaded %ls\n", loader.GetPlugins().front()->GetName().c_str());
    return 0;
}
