#include "device/DeviceEvent.h"

namespace UIKit {

wxEvent* DeviceEvent::Clone() const
{
    return new DeviceEvent(*this);
}

} // namespace UIKit
