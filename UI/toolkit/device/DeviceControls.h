#pragma once
#include "module/Export.h"
// Registers the control classes that listen to the device controller with
// the host's factory, beside the standard ones.
namespace UIKit {

class CtrlFactory;

UIKIT_API void RegisterDeviceControls(CtrlFactory& factory);

} // namespace UIKit
