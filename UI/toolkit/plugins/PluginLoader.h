#pragma once
#include "module/Export.h"
// The loader of graphical-interface plug-ins: the libraries of the
// application's plug-in directory named by a filter list, each exporting
//
//     extern "C" bool GetPlugin(Toolkit::smart_ptr<UIKit::Plugin>& plugin, UIKit::PluginParameters* parameters);
#include "Toolkit/IPluginLoader.h"
#include "plugins/Plugin.h"
#include "plugins/PluginParameters.h"

#include <vector>

namespace UIKit {

class UIKIT_API PluginLoader : public Toolkit::IPluginLoader<Plugin, PluginParameters> {
public:
    // The parameters are handed to every plug-in and must outlive the loader.
    PluginLoader(PluginParameters& parameters, const std::vector<TString<wchar_t>>& filters);
};

} // namespace UIKit
