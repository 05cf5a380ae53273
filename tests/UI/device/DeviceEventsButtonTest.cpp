// A device-events button follows the selected device: enabled only while
// it offers every feature the button needs, re-evaluated from the button's
// own queue after each change the controller reports.
#include "UI/device/core/DeviceCore.h"

#include "TestSupport.h"
#include "device/DeviceEventsButtonCtrl.h"
#include "factory/ControlIds.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

namespace devicetest {
namespace {

TEST(DeviceEventsButtonCtrl, EnabledOnlyWhileTheSelectedDeviceOffersTheNeededFeatures)
{
    DCControler::CreateInstance();
    const auto controller = DCControler::Instance();
    Devices::DeviceManager::AddListener(controller);
    {
        TestDevices devices;
        devices.backend->features = {{1, Devices::FeatureData}, {2, Devices::FeatureData | Devices::FeatureSms}};
        wxFrame frame(nullptr, wxID_ANY, "device");
        auto* button = new UIKit::DeviceEventsButtonCtrl(&frame, UIKit::ID_OK, wxRect(0, 0, 80, 20));
        button->Enable(true);
        EXPECT_FALSE(button->IsEnabled()) << "enabled without the device-features flag";
        button->SetRequiredFeatures(Devices::FeatureSms);

        const struct {
            const char* step;
            unsigned long long id;
            bool enabled;
        } steps[] = {{"plug", 1, false}, {"plug", 2, true}, {"pull", 2, false}, {"plug", 2, true}, {"pull", 1, true},
                     {"pull", 2, false}};
        for (const auto& s : steps) {
            SCOPED_TRACE(std::string(s.step) + " " + std::to_string(s.id));
            std::string(s.step) == "plug" ? devices.Plug(s.id) : devices.Pull(s.id);
            EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return button->IsEnabled() == s.enabled; }, 2000));
        }
    }
    Devices::DeviceManager::RemoveListener(controller);
    DCControler::ReleaseInstance();
}

} // namespace
} // namespace devicetest
