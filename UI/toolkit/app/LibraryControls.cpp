#include "app/LibraryControls.h"

#include "controls/StandardControls.h"
#include "device/DeviceControls.h"
#include "lists/ListControls.h"
#include "settings/SettingsControls.h"

namespace UIKit {

void RegisterLibraryControls(CtrlFactory& factory)
{
    RegisterStandardControls(factory);
    RegisterListControls(factory);
    RegisterDeviceControls(factory);
    RegisterSettingsControls(factory);
}

} // namespace UIKit
