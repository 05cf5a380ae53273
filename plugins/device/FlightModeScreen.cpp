#include "FlightModeScreen.h"

#include "device/DCControler.h"
#include "factory/ControlIds.h"

namespace deviceplugin {

bool FlightModeScreen::DoEvent(int id)
{
    if (id != UIKit::ID_YES && id != UIKit::ID_NO)
        return RequestScreen::DoEvent(id);
    auto controller = UIKit::Singleton<UIKit::DCControler>::Instance();
    if (controller && DeviceId())
        controller->ProvideFlightMode(DeviceId(), id == UIKit::ID_YES ? Devices::FlightModeLeave
                                                                      : Devices::FlightModeStay);
    Leave();
    return true;
}

} // namespace deviceplugin
