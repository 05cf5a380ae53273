#pragma once
#include "module/Export.h"
// Where the sections of plug-in item files go: templates to the template
// registry (built by the control factory), events to the event tables,
// shortcuts to the shortcut table with the key of the plug-in that declares
// them. A missing manager is skipped. Install replaces the destination (a
// test records the calls) and returns the previous one.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace UIKit {

class XMLNode;

class UIKIT_API PluginItemTables {
public:
    virtual ~PluginItemTables() = default;

    virtual void LoadTemplates(Toolkit::smart_ptr<XMLNode> templates);
    virtual void LoadEvents(Toolkit::smart_ptr<XMLNode> events);
    virtual void LoadShortcuts(Toolkit::smart_ptr<XMLNode> shortcuts, const TString<wchar_t>& pluginKey);

    // The destination in use: the installed one, else the library's managers.
    static PluginItemTables& Current();
    // Null restores the library's managers. GUI thread only.
    static PluginItemTables* Install(PluginItemTables* tables);
};

} // namespace UIKit
