#include "device/DeviceControls.h"

#include "descriptors/ButtonCtrlDescriptor.h"
#include "device/DeviceEventsButtonCtrl.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"

namespace UIKit {

void RegisterDeviceControls(CtrlFactory& factory)
{
    factory.AddGenerator(L"DeviceEventsButtonCtrl",
                         CtrlGenerator<ButtonCtrlDescriptor, DeviceEventsButtonCtrl>::Make());
}

} // namespace UIKit
