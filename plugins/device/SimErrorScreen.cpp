#include "SimErrorScreen.h"

#include "navigation/DeviceInitializationErrorParameter.h"

namespace deviceplugin {

void SimErrorScreen::ShowRequest(const UIKit::DeviceNameParameter& request)
{
    const auto* error = dynamic_cast<const UIKit::DeviceInitializationErrorParameter*>(&request);
    const bool missing = error && error->GetStep() == Devices::InitStepSimMissing;
    SetText(L"Cause", Text(missing ? "LB_DEVICE_SIM_MISSING" : "LB_DEVICE_SIM_FAILURE"));
}

} // namespace deviceplugin
