// Simulated modems call the controller from their own threads on the fake
// clock while the main thread answers their requests and navigates, and
// another thread changes the selection and registers listeners. Run under
// ThreadSanitizer too, where taking the controller's locks out of order is
// reported even when it does not deadlock.
#include "DeviceCore.h"

#include "Detection/DiscoveryControl.h"
#include "Devices/DeviceManager.h"
#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "TestSupport.h"
#include "UI/navigation/core/NavigationCore.h"
#include "navigation/SecurityCodeRequiredParameter.h"
#include "xml/SymbolicIds.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace devicetest {
namespace {

// Each modem asks for its PIN, is answered wrongly once and then rightly,
// and goes; D asks about flight mode instead.
std::string scenario()
{
    std::string text = "D modem name=D\nD plug\nD flightmode\nD signal 30\nD pull\n"
                       "G ghost name=G\nG plug\nG wait 1s\nG pull\n";
    for (const char* m : {"A modem name=A pin=7391", "B modem name=B pin=8264", "C modem name=C pin=5937"}) {
        const std::string l(m, 1);
        text += std::string(m) + "\n" + l + " plug\n" + l + " init opened identified sim\n" + l + " unlock\n" + l +
                " init unlocked completed\n" + l + " register operator=Op tech=lte signal=50\n" + l +
                " signal 40\n" + l + " features data,sms\n" + l + " wait 2s\n" + l + " pull\n";
    }
    return text;
}

// The lock each device had when it went, by name.
struct Departures : Devices::DeviceEvent {
    void OnDeviceLost(Devices::Device& d) override
    {
        std::lock_guard lock(mutex);
        locks[d.GetName()] = d.GetInfo().lock;
    }
    size_t Count()
    {
        std::lock_guard lock(mutex);
        return locks.size();
    }
    std::mutex mutex;
    std::map<TString<wchar_t>, Devices::LockKind> locks;
};

class ControllerThreadsTest : public navtest::NavigationTest {
protected:
    void SetUp() override
    {
        NavigationTest::SetUp();
        for (int state : {UIKit::ID_PINCODE_STATE, UIKit::ID_PUKCODE_STATE, UIKit::ID_FLIGHTMODE_STATE})
            addGlobalRow(state, L"Request" + std::to_wstring(state));
        DCControler::CreateInstance();
        controller = DCControler::Instance();
        controller->AddListener(&posted);
        Devices::DeviceManager::AddListener(departures);
        Devices::Simulation::ScenarioBackend::Install(
            Devices::Simulation::ScenarioParser::ParseText("stress.scenario", scenario()));
    }
    void TearDown() override
    {
        controller->Stop();
        Detection::DiscoveryControl::SetSource({});
        Devices::DeviceManager::SetBackend({});
        Devices::DeviceManager::RemoveListener(departures);
        posted.Take();
        controller->RemoveListener(&posted);
        controller.reset();
        DCControler::ReleaseInstance();
        NavigationTest::TearDown();
    }

    // Answers every screen: a wrong PIN first, then the device's own.
    void answer(const Toolkit::smart_ptr<UIKit::DeviceNameParameter>& screen)
    {
        const auto request = screen.DynamicCast<UIKit::SecurityCodeRequiredParameter>();
        if (!request) {
            controller->ProvideFlightMode(screen->GetDeviceId(), Devices::FlightModeLeave);
            return;
        }
        const std::map<TString<wchar_t>, const char*> pins = {{L"A", "7391"}, {L"B", "8264"}, {L"C", "5937"}};
        const bool first = answered.insert(screen->GetDeviceName()).second;
        controller->ProvidePINCode(screen->GetDeviceId(), first ? "9146" : pins.at(screen->GetDeviceName()));
    }

    testsupport::FakeClock clock;
    PostedEvents posted;
    Toolkit::smart_ptr<Departures> departures = Toolkit::make_smart<Departures>();
    Toolkit::smart_ptr<DCControler> controller;
    std::set<TString<wchar_t>> answered;
};

TEST_F(ControllerThreadsTest, DevicesCallingFromTheirThreadsGetTheirOwnCodesWhileTheGuiThreadNavigates)
{
    testsupport::LogCapture log;
    std::atomic<bool> done{false};
    std::thread selector([&] {
        const auto listener = Toolkit::make_smart<Devices::DeviceEvent>();
        for (unsigned i = 0; !done; ++i) {
            DCControler::DeviceMap devices;
            controller->GetDevices(devices);
            for (const auto& [id, device] : devices)
                if (i % (devices.size() + 1) == 0)
                    controller->SetSelectedDevice(id);
            if (const auto selected = controller->GetSelectedDevice())
                controller->CanDispatchDeviceEvent(selected->GetId());
            controller->Register(listener);
            controller->Unregister(listener);
            std::this_thread::yield();
        }
    });
    controller->Start();
    const auto guard = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (int step = 0; departures->Count() < 4 && std::chrono::steady_clock::now() < guard; ++step) {
        for (const auto& screen : posted.TakeScreens())
            if (screen)
                answer(screen);
        if (step % 50 == 49)
            sequences->PreviousSequence(UIKit::AnimationNone);
        std::this_thread::yield();
    }
    done = true;
    selector.join();

    ASSERT_EQ(departures->Count(), 4u) << "a device still waits for its answer";
    for (const wchar_t* name : {L"A", L"B", L"C"})
        EXPECT_EQ(departures->locks[name], Devices::LockNone) << "device " << name << " not unlocked by its PIN";
    EXPECT_GE(answered.size(), 3u);
    const std::wstring all = log.Dump();
    for (const wchar_t* code : {L"7391", L"8264", L"5937", L"9146"})
        EXPECT_EQ(all.find(code), std::wstring::npos) << "a code in the log";
}

} // namespace
} // namespace devicetest
