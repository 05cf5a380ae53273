#pragma once
// Loads plug-ins from the shared libraries of one directory. Each library
// exports an entry function, called with an empty plug-in pointer to fill
// and the loader's parameters, returning true when it has made its plug-in:
//
//     extern "C" bool Entry(Toolkit::smart_ptr<Plugin>& plugin, Parameters* parameters);
//
// A library whose plug-in is accepted stays loaded for as long as the
// plug-in object lives (PluginAction); any other is closed again at once,
// with one log entry naming the file and the cause.
#include "Toolkit/PluginAction.h"
#include "Toolkit/PluginLoaderBase.h"
#include "Toolkit/smart_ptr.h"

#include <memory>
#include <vector>

namespace Toolkit {

template <class Plugin, class Parameters>
class IPluginLoader : public PluginLoaderBase {
public:
    using PluginPtr = smart_ptr<Plugin>;
    using Entry = bool (*)(PluginPtr&, Parameters*);

    IPluginLoader(const TString<wchar_t>& entry, Parameters& parameters, const TString<wchar_t>& directory)
        : PluginLoaderBase(entry, directory), m_parameters(parameters)
    {
    }

    // Loads the candidate libraries in order; the number of plug-ins now
    // held (0 when the load was aborted).
    int Load();
    const std::vector<PluginPtr>& GetPlugins() const { return m_plugins; }

private:
    PluginPtr loadOne(const TString<wchar_t>& file);

    std::vector<PluginPtr> m_plugins;
    Parameters& m_parameters;
};

template <class Plugin, class Parameters>
int IPluginLoader<Plugin, Parameters>::Load()
{
    m_plugins.clear();
    std::vector<TString<wchar_t>> files;
    if (!ListCandidates(files))
        return 0;
    for (const auto& file : files)
        if (auto plugin = loadOne(file))
            m_plugins.push_back(plugin);
    return static_cast<int>(m_plugins.size());
}

template <class Plugin, class Parameters>
smart_ptr<Plugin> IPluginLoader<Plugin, Parameters>::loadOne(const TString<wchar_t>& file)
{
    DynamicLibrary library;
    auto entry = reinterpret_cast<Entry>(OpenEntry(library, file));
    if (!entry)
        return {};
    PluginPtr plugin;
    const char* cause = nullptr;
    try {
        if (!entry(plugin, &m_parameters))
            cause = "the entry returned false";
        else if (!plugin)
            cause = "the entry returned no plug-in";
        else if (!std::get_deleter<detail::ActionDeleter>(plugin.shared()))
            cause = "the plug-in is not owned by a smart_ptr of its own";
    } catch (...) {
        cause = "the entry threw an exception";
    }
    if (cause) {
        // Whatever the library made goes before the library itself.
        plugin.reset();
        LogRejected(file, cause);
        return {};
    }
    PluginAction::Attach(plugin, library.Detach());
    return plugin;
}

} // namespace Toolkit
