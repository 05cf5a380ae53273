// The controller driven on one thread: each case is a script of steps, each
// with what it must give. Then simulated modems call it from their own
// threads on the fake clock while the main thread answers their requests
// and navigates, and another thread changes the selection and registers
// listeners. Run under ThreadSanitizer too, which reports the controller's
// locks taken out of order even when no deadlock happens.
#include "DeviceCore.h"

#include "Detection/DiscoveryControl.h"
#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "TestSupport.h"
#include "UI/navigation/core/NavigationCore.h"
#include "module/SingletonSlot.h"
#include "xml/SymbolicIds.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <sstream>
#include <thread>

UIKIT_SINGLETON_SLOT(UIKit::DCControler)

namespace devicetest {
namespace {

using Script = std::vector<std::pair<std::string, std::string>>;

// Carries out one step ("pin 1", "give 1 PIN [PUK]", ...) and says what came
// of it: the code handed to the device (PUK/new PIN), "stop", then what
// was posted.
std::string step(TestController& t, const std::string& line)
{
    std::istringstream words(line);
    std::string verb, code, puk;
    unsigned long long id = 0;
    words >> verb >> id >> code >> puk;
    auto& c = *t.controller;
    const auto device = Devices::DeviceManager::GetDevice(id);
    TString<char> out, newPin;
    bool stop = false;
    if (verb == "plug")
        t.Plug(id);
    else if (verb == "pull")
        t.Pull(id);
    else if (verb == "pin")
        c.OnPinCodeRequested(*device, Devices::SecurityCodeSimPin, 3, out, false, stop);
    else if (verb == "puk")
        c.OnPukCodeRequested(*device, Devices::SecurityCodeSimPuk, 10, out, newPin, false, stop);
    else if (verb == "give")
        c.ProvidePUKCode(id, puk, code);
    else if (verb == "cancel")
        c.OnPinPukCodeRequestCancelled(*device);
    else if (verb == "held")
        out = c.GetPINCode(id);
    else if (verb == "init")
        c.OnPortInitProgress(*device, "ttyUSB0", Devices::InitializationStep(std::stoi(code)));
    else if (verb == "flight") {
        Devices::FlightMode mode = Devices::FlightModeUnanswered;
        c.OnDeviceInFlightMode(*device, mode);
        out = mode ? std::to_string(mode) : "";
    } else if (verb == "update")
        c.OnDeviceUpdated(*device);
    else if (verb == "stop")
        c.Stop();
    std::string said = stop ? "stop" : out + (newPin.empty() ? "" : "/" + newPin);
    for (const auto& word : t.posted.Take())
        said += (said.empty() ? "" : ", ") + word;
    return said;
}

void play(const Script& script)
{
    TestController t;
    for (const auto& [line, expected] : script)
        EXPECT_EQ(step(t, line), expected) << line;
}

const std::pair<std::string, std::string> c_plug1 = {"plug 1", "found 1, info 1"};
const std::pair<std::string, std::string> c_plug2 = {"plug 2", "lost 1, found 2, info 2"};

// A repeated request shows its screen once; the answer goes once to the
// device it was given for and is not kept; a device that goes takes its
// screen and its answer with it.
const std::pair<const char*, Script> c_requestCases[] = {
    {"repeated PIN request",
     {c_plug1, {"pin 1", "screen 8010 1"}, {"pin 1", ""}, {"pin 1", ""}, {"give 1 4711", ""}, {"pin 1", "4711"},
      {"held 1", ""}, {"pin 1", "screen 8010 1"}}},
    {"PUK with a new PIN",
     {c_plug1, {"puk 1", "screen 8011 1"}, {"give 1 5802 91827364", ""}, {"puk 1", "91827364/5802"},
      {"puk 1", "screen 8011 1"}}},
    {"two devices asking at once",
     {c_plug1, c_plug2, {"pin 1", "screen 8010 1"}, {"pin 2", ""}, {"give 1 4711", ""}, {"pin 2", ""},
      {"pin 1", "4711"}, {"pin 2", "screen 8010 2"}, {"give 2 3141", ""}, {"pin 1", ""}, {"pin 2", "3141"}}},
    {"device gone while its screen is up",
     {c_plug1, c_plug2, {"pin 1", "screen 8010 1"}, {"pull 1", "back"}, {"give 1 4711", ""},
      {"pin 2", "screen 8010 2"}, {"held 1", ""}}},
    {"cancelled request", {c_plug1, {"pin 1", "screen 8010 1"}, {"cancel 1", "back"}, {"pin 1", "screen 8010 1"}}},
    {"SIM error once until the next code request",
     {c_plug1, {"init 1 8", "screen 8013 1"}, {"init 1 9", ""}, {"pin 1", "screen 8010 1"},
      {"init 1 9", "screen 8013 1"}}},
    {"radio held off by its switch", {c_plug1, {"flight 1", "screen 8015 1"}, {"init 1 7", ""}, {"flight 1", "1"}}},
    {"stopped while a request waits", {c_plug1, {"pin 1", "screen 8010 1"}, {"stop", ""}, {"pin 1", "stop"}}},
};

TEST(DCControler, CodeRequestsShowOneScreenAndHandEachCodeOnceToItsDevice)
{
    testsupport::LogCapture log;
    Toolkit::ILogger::Instance().SetMinimumSeverity(Toolkit::LogInfo);
    for (const auto& [name, script] : c_requestCases) {
        SCOPED_TRACE(name);
        play(script);
    }
    EXPECT_TRUE(log.Contains(L"OnPinCodeRequested Modem 1 : pin"));
    const std::wstring all = log.Dump();
    for (const wchar_t* code : {L"4711", L"5802", L"91827364", L"3141"})
        EXPECT_EQ(all.find(code), std::wstring::npos) << "a code in the log";
}

// Events about a device reach the windows only while it is the selected
// one (or none is); the selection follows the newest device and falls back
// to the one before.
TEST(DCControler, SelectionFollowsTheNewestDeviceAndFiltersTheOthersEvents)
{
    play({c_plug1, c_plug2, {"update 1", ""}, {"update 2", "updated 2"}, {"plug 3", "lost 2, found 3, info 3"},
          {"pull 2", ""}, {"pull 3", "lost 3, found 1, info 1"}, {"pull 1", "lost 1"}, {"plug 4", "found 4, info 4"}});
}

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
