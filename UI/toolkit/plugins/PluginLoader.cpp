#include "plugins/PluginLoader.h"

#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

namespace UIKit {

PluginLoader::PluginLoader(PluginParameters& parameters, const std::vector<TString<wchar_t>>& filters)
    : IPluginLoader(L"GetPlugin", parameters,
                    Toolkit::UTF8::ToUNICODE(Toolkit::PathManager::Instance().GetPluginsDir()))
{
    SetFilterList(filters);
}

} // namespace UIKit
