#pragma once
// The SIM of a device could not be used: says whether it is missing or
// does not answer. OK goes back.
#include "RequestScreen.h"

namespace deviceplugin {

class SimErrorScreen : public RequestScreen {
public:
    using RequestScreen::RequestScreen;

protected:
    void ShowRequest(const UIKit::DeviceNameParameter& request) override;
};

} // namespace deviceplugin
