#include "device/DeviceInitEvent.h"

namespace UIKit {

wxEvent* DeviceInitEvent::Clone() const
{
    return new DeviceInitEvent(*this);
}

} // namespace UIKit
