// Simulated modems call the controller from their own threads on the fake
// clock while the main thread answers their requests and navigates, and
// another thread changes the selection and registers listeners. Run under
// ThreadSanitizer too, which reports the controller's locks taken out of
// order even when no deadlock happens.
#include "DeviceCore.h"

#include "Detection/DiscoveryControl.h"
#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "TestSupport.h"
#include "UI/navigation/core/NavigationCore.h"
#include "xml/SymbolicIds.h"

#include <atomic>
#include <chrono>
#include <sstream>
#include <thread>

namespace devicetest {
namespace {

// Three modems ask for their PINs and one about flight mode; all go.
const char* const c_scenario = R"(
A modem name=A pin=7391
B modem name=B pin=8264
C modem name=C pin=5937
D modem name=D
D plug
D flightmode
D pull
)";
const std::map<TString<wchar_t>, const char*> c_pins = {{L"A", "7391"}, {L"B", "8264"}, {L"C", "5937"}};

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

std::string scenario()
{
    std::string text = c_scenario;
    for (const char* l : {"A", "B", "C"})
        for (const char* step : {"plug", "init opened identified sim", "unlock", "init unlocked completed",
                                 "register operator=Op tech=lte signal=50", "signal 40", "features data,sms", "pull"})
            text += std::string(l) + " " + step + "\n";
    return text;
}

using ControllerThreadsTest = navtest::NavigationTest;

TEST_F(ControllerThreadsTest, DevicesCallingFromTheirThreadsGetTheirOwnCodesWhileTheGuiThreadNavigates)
{
    for (int state : {UIKit::ID_PINCODE_STATE, UIKit::ID_FLIGHTMODE_STATE})
        addGlobalRow(state, L"Request" + std::to_wstring(state));
    testsupport::FakeClock clock;
    TestController t(false);
    const auto departures = Toolkit::make_smart<Departures>();
    Devices::DeviceManager::AddListener(departures);
    Devices::Simulation::ScenarioBackend::Install(Devices::Simulation::ScenarioParser::ParseText("s", scenario()));
    std::atomic<bool> done{false};
    std::thread selector([&] {
        const auto listener = Toolkit::make_smart<Devices::DeviceEvent>();
        for (unsigned i = 0; !done;) {
            DCControler::DeviceMap devices;
            t.controller->GetDevices(devices);
            for (const auto& [id, device] : devices)
                if (++i % 3 == 0)
                    t.controller->SetSelectedDevice(id);
            t.controller->Register(listener);
            t.controller->Unregister(listener);
            std::this_thread::yield();
        }
    });
    t.controller->Start();
    // Every screen is answered: a wrong PIN first, then the device's own.
    std::set<TString<wchar_t>> answered;
    const auto guard = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (int n = 0; departures->Count() < 4 && std::chrono::steady_clock::now() < guard; ++n) {
        for (const auto& word : t.posted.Take()) {
            std::istringstream in(word);
            std::string what;
            int state = 0;
            unsigned long long id = 0;
            const auto device = (in >> what >> state >> id, t.controller->GetDevice(id));
            if (what != "screen" || !device)
                continue;
            if (state == UIKit::ID_FLIGHTMODE_STATE)
                t.controller->ProvideFlightMode(id, Devices::FlightModeLeave);
            else if (answered.insert(device->GetName()).second)
                t.controller->ProvidePINCode(id, "9146");
            else
                t.controller->ProvidePINCode(id, c_pins.at(device->GetName()));
        }
        if (n % 50 == 49)
            sequences->PreviousSequence(UIKit::AnimationNone);
    }
    done = true;
    selector.join();
    t.controller->Stop();
    Detection::DiscoveryControl::SetSource({});
    Devices::DeviceManager::RemoveListener(departures);

    ASSERT_EQ(departures->Count(), 4u) << "a device still waits for its answer";
    for (const auto& [name, pin] : c_pins)
        EXPECT_EQ(departures->locks[name], Devices::LockNone) << "a PIN went to another device";
}

} // namespace
} // namespace devicetest
