#pragma once
#include "module/Export.h"
// Stand-in: only the call the plug-in manager makes on the shortcut table.
#include "Toolkit/TString.h"
#include "module/Singleton.h"
#include "xml/XMLNode.h"

namespace UIKit {

class UIKIT_API ShortcutManager : public Singleton<ShortcutManager> {
public:
    // Adds the rows of one "Shortcuts" element, owned by the plug-in with that key.
    void Load(Toolkit::smart_ptr<XMLNode> shortcuts, const TString<wchar_t>& pluginKey);
};

} // namespace UIKit
