// Stand-in definitions for the event, shortcut and hot-key managers, so the
// plug-in manager links before they exist. Their slots stay empty: nothing
// creates these managers.
#include "module/SingletonSlot.h"
#include "navigation/EventManager.h"
#include "navigation/HotkeysManager.h"
#include "navigation/ShortcutManager.h"

UIKIT_SINGLETON_SLOT(UIKit::EventManager)
UIKIT_SINGLETON_SLOT(UIKit::ShortcutManager)
UIKIT_SINGLETON_SLOT(UIKit::HotkeysManager)

namespace UIKit {

void EventManager::Load(Toolkit::smart_ptr<XMLNode>) {}

void ShortcutManager::Load(Toolkit::smart_ptr<XMLNode>, const TString<wchar_t>&) {}

} // namespace UIKit
