#pragma once
#include "module/Export.h"
// The one call a host makes to give the factory every control class of the
// library: the standard controls, the lists, the device-aware controls and
// the settings pages. The library registers nothing by itself, so a host
// that wants fewer classes may still call the parts on their own.

namespace UIKit {

class CtrlFactory;

UIKIT_API void RegisterLibraryControls(CtrlFactory& factory);

} // namespace UIKit
