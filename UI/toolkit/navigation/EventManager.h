#pragma once
#include "module/Export.h"
// Stand-in: only the call the plug-in manager makes on the event tables.
#include "module/Singleton.h"
#include "xml/XMLNode.h"

namespace UIKit {

class UIKIT_API EventManager : public Singleton<EventManager> {
public:
    // Adds the rows of one "Events" element.
    void Load(Toolkit::smart_ptr<XMLNode> events);
};

} // namespace UIKit
