// The connection manager with its device plug-in and a simulated modem on
// the fake clock: the PIN screen hands what was typed to the controller for
// the device that asked, and a scenario that cannot be read leaves the host
// with no device and one message naming the file and the line.
#include "UI/host/HostFixture.h"
#include "TestSupport.h"

#include "Toolkit/UTF8.h"
#include "device/DCControler.h"
#include "factory/ControlIds.h"
#include "navigation/ScreenCtrl.h"
#include "util/Util.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <chrono>
#include <functional>

namespace {

class DeviceHostTest : public hosttest::HostFixture {
protected:
    void SetUp() override
    {
        HostFixture::SetUp();
        if (!HasFatalFailure())
            host::StartNavigation();
    }

    // Handles posted events until the condition holds (false after a
    // generous guard: the modems run on the fake clock, so it never waits).
    static bool until(const std::function<bool()>& condition)
    {
        const auto guard = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && std::chrono::steady_clock::now() < guard)
            wxTheApp->ProcessPendingEvents();
        return condition();
    }
    UIKit::ScreenCtrl* shown(const wchar_t* screen) const
    {
        auto* current = m_dashboard->GetCurrentRunningScreen();
        return current && current->IsShown() && current->GetDescriptor()->GetClass() == screen ? current : nullptr;
    }
    static TString<wchar_t> label(wxWindow* screen, const wchar_t* control)
    {
        TString<wchar_t> text;
        UIKit::Util::GetWindowLabel(screen, TString<wchar_t>(control), text);
        return text;
    }
    static void answer(UIKit::ScreenCtrl* screen, const wchar_t* pin)
    {
        UIKit::Util::SetWindowLabel(screen, TString<wchar_t>(L"PinCode"), pin);
        wxCommandEvent ok(wxEVT_BUTTON, UIKit::ID_OK);
        screen->ProcessWindowEvent(ok);
    }

};

TEST_F(DeviceHostTest, PinScreenAnswersTheControllerWithTheTypedCode)
{
    testsupport::FakeClock clock;
    m_options.scenario = m_home.Write("pin.scenario", "A modem name=\"Test modem\" pin=2468 pin-attempts=3\n"
                                                      "A plug\nA init opened identified sim\nA unlock\n"
                                                      "A init unlocked completed\n")
                             .string();
    ASSERT_TRUE(host::StartDevices(m_options));
    auto controller = UIKit::DCControler::Instance();
    ASSERT_TRUE(until([&] { return shown(L"PinScreen"); })) << "no PIN screen for the request";
    EXPECT_EQ(label(shown(L"PinScreen"), L"DeviceName"), L"Test modem");
    EXPECT_NE(label(shown(L"PinScreen"), L"Attempts").find(L"3"), TString<wchar_t>::npos);

    // A wrong PIN comes back refused, with one attempt fewer.
    answer(shown(L"PinScreen"), L"1357");
    ASSERT_TRUE(until([&] { return shown(L"PinScreen") && !label(shown(L"PinScreen"), L"Refused").empty(); }))
        << "a refused PIN is asked again, saying so";
    EXPECT_NE(label(shown(L"PinScreen"), L"Attempts").find(L"2"), TString<wchar_t>::npos);
    EXPECT_TRUE(label(shown(L"PinScreen"), L"PinCode").empty()) << "the typed code stays on screen";

    answer(shown(L"PinScreen"), L"2468");
    EXPECT_TRUE(until([&] {
        UIKit::DCControler::DeviceMap devices;
        controller->GetDevices(devices);
        return devices.size() == 1 && devices.begin()->second->GetInfo().lock == Devices::LockNone;
    })) << "the right PIN did not unlock the device";
    EXPECT_FALSE(shown(L"PinScreen"));
}

TEST_F(DeviceHostTest, ScenarioWithASyntaxErrorGivesItsLineAndNoDevice)
{
    testsupport::FakeClock clock;
    m_options.scenario = m_home.Write("bad.scenario", "A modem name=A\nA plug\nA wait soon\n").string();
    Devices::Simulation::Scenario scenario;
    std::vector<TString<wchar_t>> messages;
    EXPECT_FALSE(host::ReadScenario(m_options.scenario, scenario, messages));
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.front().rfind(Toolkit::UTF8::ToUNICODE(m_options.scenario + ":3:"), 0), 0u);
    EXPECT_FALSE(host::StartDevices(m_options));
    for (int i = 0; i < 200; ++i) {
        clock.Advance(100);
        wxTheApp->ProcessPendingEvents();
    }
    UIKit::DCControler::DeviceMap devices;
    UIKit::DCControler::Instance()->GetDevices(devices);
    EXPECT_TRUE(devices.empty()) << "a device of the refused scenario came up";
}

} // namespace
