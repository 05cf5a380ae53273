#pragma once
// The device came up with its radio off: Yes switches the radio on (the
// device leaves flight mode), No keeps it off. Either answer goes to the
// device controller for the device that asked.
#include "RequestScreen.h"

namespace deviceplugin {

class FlightModeScreen : public RequestScreen {
public:
    using RequestScreen::RequestScreen;
    bool DoEvent(int id) override;
};

} // namespace deviceplugin
