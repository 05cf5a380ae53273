#include "settings/SettingItemEvent.h"

namespace UIKit {

const wxEventType PushSettingItemEvent::EVENT = wxNewEventType();
const wxEventType PopSettingItemEvent::EVENT = wxNewEventType();
const wxEventType PopToRootSettingItemEvent::EVENT = wxNewEventType();
const wxEventType UpdateSettingItemEvent::EVENT = wxNewEventType();
const wxEventType UpdateSettingPanelEvent::EVENT = wxNewEventType();

} // namespace UIKit
