#include "device/EnableWithDeviceFeaturesEvent.h"

namespace UIKit {

const wxEventType EnableWithDeviceFeaturesEvent::EVT_DEVICEFEATURES_CHANGED = wxNewEventType();

} // namespace UIKit
