// A device-events button is enabled only while the selected device offers
// every feature it needs, re-evaluated from its own queue after each change.
#include "UI/device/core/DeviceCore.h"

#include "TestSupport.h"
#include "device/DeviceEventsButtonCtrl.h"
#include "factory/ControlIds.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

TEST(DeviceEventsButtonCtrl, EnabledOnlyWhileTheSelectedDeviceOffersTheNeededFeatures)
{
    devicetest::TestController t;
    t.backend->features = {{1, Devices::FeatureData}, {2, Devices::FeatureData | Devices::FeatureSms}};
    wxFrame frame(nullptr, wxID_ANY, "device");
    auto* button = new UIKit::DeviceEventsButtonCtrl(&frame, UIKit::ID_OK, wxRect(0, 0, 80, 20));
    button->Enable(true);
    EXPECT_FALSE(button->IsEnabled()) << "enabled without the device-features flag";
    button->SetRequiredFeatures(Devices::FeatureSms);
    // Device id (negative: pulled) and whether the button is then enabled.
    const std::pair<int, bool> steps[] = {{1, false}, {2, true}, {-2, false}, {2, true}, {-1, true}, {-2, false}};
    for (const auto& [id, enabled] : steps) {
        SCOPED_TRACE(id);
        id > 0 ? t.Plug(id) : t.Pull(-id);
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return button->IsEnabled() == enabled; }, 2000));
    }
}
