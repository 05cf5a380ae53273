// The connection manager on the simulated modems and the fake clock: at
// every step of every scenario of the default set, the sequence on show
// and its screen match what the device layer says about the selected
// device; and the user's bad days (a modem pulled out at the wrong moment,
// a refused connection, Connect pressed ten times) end on a screen that
// tells the truth, and a session ends as one entry of the history. The PIN
// screen answers with what was typed; a bad scenario brings no device.
#include "UI/host/HostFixture.h"
#include "ErrorCapture.h"
#include "TestSupport.h"
#include "UserInput.h"

#include "Devices/DeviceManager.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "Preferences/AppPreferences.h"
#include "Toolkit/Thread.h"
#include "Toolkit/UTF8.h"
#include "appearance/Appearance.h"
#include "controls/NumericUpDownCtrl.h"
#include "device/DCControler.h"
#include "factory/ControlIds.h"
#include "history/ConnectionHistory.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/Sequence.h"
#include "navigation/SequenceManager.h"
#include "popups/NotifPopupManager.h"
#include "util/Util.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/thread.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <map>
#include <mutex>
#include <set>

namespace {

// The sequence the connection area must show for the selected device (the
// device controller's request screens stand over it meanwhile).
TString<wchar_t> expectedSequence(const Toolkit::smart_ptr<Devices::Device>& device)
{
    if (!device)
        return L"NoDevice|UnknownDevice";
    switch (device->GetInfo().state) {
    case Devices::DeviceStateFailed: return L"ConnectionError";
    case Devices::DeviceStateConnecting: return L"Connecting";
    case Devices::DeviceStateConnected: return L"Connected";
    case Devices::DeviceStateDisconnecting: return L"Disconnecting";
    case Devices::DeviceStateRegistered:
        // A refused connection is told until the user has read it.
        return device->GetInfo().connectionError != Devices::ConnectionErrorNone ? L"Home|ConnectionError" : L"Home";
    case Devices::DeviceStateDisabled:
    case Devices::DeviceStateEnabled:
    case Devices::DeviceStateSearching: return L"Home";
    default: return L"DeviceInit";
    }
}

const std::map<TString<wchar_t>, TString<wchar_t>> c_screens{
    {L"NoDevice", L"NoDeviceScreen"},       {L"UnknownDevice", L"UnknownDeviceScreen"},
    {L"DeviceInit", L"DeviceInitScreen"},   {L"Home", L"HomeScreen"},
    {L"Connecting", L"ConnectingScreen"},   {L"Connected", L"ConnectedScreen"},
    {L"Disconnecting", L"DisconnectingScreen"}, {L"ConnectionError", L"ConnectionErrorScreen"},
};

// Counts the times the selected device started to connect.
class ConnectCounter : public Devices::DeviceEvent {
public:
    void OnDeviceUpdated(Devices::Device& device) override
    {
        const bool connecting = device.GetInfo().state == Devices::DeviceStateConnecting;
        if (connecting && !m_connecting)
            ++starts;
        m_connecting = connecting;
    }
    std::atomic<int> starts{0};

private:
    bool m_connecting = false;
};

// The host as it starts, and what its window shows.
class HostTest : public hosttest::HostFixture {
protected:
    TString<wchar_t> sequence() const
    {
        const auto current = UIKit::SequenceManager::Instance()->GetCurrentSequence();
        return current ? current->GetName() : TString<wchar_t>();
    }
    UIKit::ScreenCtrl* screen() const
    {
        auto* shown = m_dashboard->GetCurrentRunningScreen();
        return shown && shown->IsShown() ? shown : nullptr;
    }
    TString<wchar_t> screenClass() const { return screen() ? screen()->GetDescriptor()->GetClass() : L""; }
    TString<wchar_t> label(const wchar_t* control) const
    {
        TString<wchar_t> text;
        UIKit::Util::GetWindowLabel(screen(), TString<wchar_t>(control), text);
        return text;
    }
    void press(int id) { ASSERT_TRUE(host::Click(*m_dashboard, id)) << "no button " << id << " on " << screenClass(); }
    bool selected(const wchar_t* navButton) const
    {
        auto* button = UIKit::Util::RecursiveFindControl(m_dashboard, navButton);
        return button && button->IsSelected();
    }
};

class ConnectionScenarioTest : public HostTest {
protected:
    // The modems sleep on the test's clock: a pause ends only once the test
    // has moved the clock past it, so a scenario plays step by step with the
    // screens instead of racing to its end.
    void SetUp() override
    {
        HostTest::SetUp();
        Toolkit::SetSleepHandler([this](unsigned ms) {
            if (wxThread::IsMain())
                return; // the window's own pacing (slides) does not wait
            std::unique_lock lock(m_pace);
            const auto parked = m_dues.insert(clock.Now() + ms);
            ++m_parkings;
            m_paced.notify_all();
            m_paced.wait(lock, [&] { return m_released || clock.Now() >= *parked; });
            m_dues.erase(parked);
        });
    }
    void TearDown() override
    {
        {
            std::lock_guard lock(m_pace);
            m_released = true;
        }
        m_paced.notify_all();
        HostTest::TearDown();
    }
    // Moves the clock on and waits until every modem it woke has played its
    // step and paused again. A modem whose script ends there never pauses
    // again: the bound covers that one step.
    void advance(uint64_t ms)
    {
        std::unique_lock lock(m_pace);
        const auto woken = size_t(std::distance(m_dues.begin(), m_dues.upper_bound(clock.Now() + ms)));
        m_parkings = 0;
        clock.Advance(ms);
        m_paced.notify_all();
        m_paced.wait_for(lock, std::chrono::milliseconds(200), [&] { return m_parkings >= woken; });
    }

    // True when the screen on show agrees with the selected device; a
    // request screen agrees while its device is present.
    bool agrees(std::wstring& why) const
    {
        const auto device = UIKit::DCControler::Instance()->GetSelectedDevice();
        const TString<wchar_t> seq = sequence();
        why = L"sequence " + seq + L", screen " + screenClass() + L", device state " +
              (device ? std::to_wstring(device->GetInfo().state) : L"none");
        if (seq == L"DeviceRequest")
            return device && screenClass().find(L"Screen") != TString<wchar_t>::npos;
        const auto expected = expectedSequence(device);
        const auto screenIt = c_screens.find(seq);
        return expected.find(seq) != TString<wchar_t>::npos && screenIt != c_screens.end() &&
               screenClass() == screenIt->second;
    }
    // Lets the GUI thread catch up with the modems (the fake clock stands
    // still). What they posted is handled first: a screen that still agrees
    // may be about to give way to a request the controller has sent.
    void expectAgreement(const std::string& where)
    {
        wxTheApp->ProcessPendingEvents();
        wxTheApp->Yield(true);
        std::wstring why;
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return agrees(why); }, 3000))
            << where << ": " << Toolkit::UTF8::ToUTF8(why);
    }
    void start(const std::string& text)
    {
        m_options.scenario = m_home.Write("test.scenario", text).string();
        ASSERT_TRUE(host::StartDevices(m_options));
    }
    // The ready screen with Connect enabled: the device is registered.
    bool ready() const
    {
        const auto device = UIKit::DCControler::Instance()->GetSelectedDevice();
        auto* connect =
            screenClass() == L"HomeScreen" ? UIKit::Util::FindControl(screen(), UIKit::ID_CONNECT) : nullptr;
        return connect && connect->IsEnabled() && device && device->GetInfo().state == Devices::DeviceStateRegistered;
    }
    // Moves the fake clock on in steps until the condition holds, giving
    // the modems a moment to see each step.
    bool advanceUntil(const std::function<bool()>& condition, uint64_t maxMs = 10000)
    {
        for (uint64_t t = 0; t < maxMs; t += 250) {
            advance(250);
            if (testsupport::ProcessEventsUntil(condition, 200))
                return true;
        }
        return false;
    }
    std::string current() const { return Toolkit::UTF8::ToUTF8(sequence()); }
    bool until(const std::function<bool()>& condition) { return testsupport::ProcessEventsUntil(condition); }

    testsupport::FakeClock clock;
    std::mutex m_pace; // guards what follows
    std::condition_variable m_paced;
    std::multiset<uint64_t> m_dues; // when each paused modem wakes
    size_t m_parkings = 0;          // pauses begun since the last advance
    bool m_released = false;
};

std::filesystem::path scenarioFolder()
{
    return testsupport::DataDir().parent_path().parent_path() / "platform/Devices/scenarios";
}

const char* const c_readyModem = "A modem name=\"Test modem\" imei=356938035643809\nA plug\n"
                                 "A init opened identified sim unlocked radio features completed\n"
                                 "A traffic up=1000 down=9000\n";

std::vector<std::string> defaultScenarios()
{
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(scenarioFolder()))
        names.push_back(file.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

class DefaultScenarioTest : public ConnectionScenarioTest, public testing::WithParamInterface<std::string> {};

// Every scenario of the default set, answered as a user would (right codes,
// radio on, error read); the device layer and the screens agree throughout.
TEST_P(DefaultScenarioTest, ScreensShowTheDevicesStateThroughout)
{
    host::StartNavigation();
    const auto path = (scenarioFolder() / GetParam()).string();
    const auto scenario = Devices::Simulation::ScenarioParser::ParseFile(path);
    ASSERT_EQ(scenario.errors, 0u);
    std::map<TString<wchar_t>, std::pair<std::string, std::string>> codes; // name -> PIN, PUK
    uint64_t length = 0;
    bool registers = false;
    for (const auto& modem : scenario.modems) {
        codes[modem.info.name] = {modem.pin, modem.puk};
        uint64_t waits = 0;
        for (const auto& step : modem.steps) {
            waits += step.kind == Devices::Simulation::StepKind::Wait ? step.duration : 0;
            registers = registers || step.kind == Devices::Simulation::StepKind::Register;
        }
        length = std::max(length, waits);
    }
    m_options.scenario = path;
    ASSERT_TRUE(host::StartDevices(m_options));
    const auto type = [&](const wchar_t* box, const std::string& code) {
        UIKit::Util::SetWindowLabel(screen(), TString<wchar_t>(box), Toolkit::UTF8::ToUNICODE(code));
    };
    std::set<TString<wchar_t>> visited;
    for (uint64_t t = 0; t < length + 20000; t += 250) {
        advance(250);
        expectAgreement("at " + std::to_string(t) + " ms");
        visited.insert(sequence());
        const auto request = screenClass();
        const auto& [pin, puk] = codes[label(L"DeviceName")];
        if (request == L"PinScreen" || request == L"PukScreen") {
            type(L"PinCode", pin);
            type(L"PukCode", puk);
            type(L"NewPinCode", pin);
            press(UIKit::ID_OK);
        } else if (request == L"FlightModeScreen") {
            press(UIKit::ID_YES);
        } else if (request == L"SimErrorScreen") {
            press(UIKit::ID_OK);
        }
    }
    // The user's answers got every modem that registers through to a network.
    std::string seen;
    for (const auto& name : visited)
        seen += Toolkit::UTF8::ToUTF8(name) + " ";
    if (registers) {
        EXPECT_GT(visited.count(L"Home") + visited.count(L"Connected"), 0u) << "screens seen: " << seen;
    }
}

INSTANTIATE_TEST_SUITE_P(DefaultSet, DefaultScenarioTest, testing::ValuesIn(defaultScenarios()),
                         [](const testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param.substr(0, info.param.find('.'));
                             std::erase(name, '-');
                             return name;
                         });

// When the test unplugs the modem (the device layer lets go of it, as when
// it is pulled out), if it does.
enum class Unplug { Never, WhileConnecting, WhilePinAsked, WhileItsPopupIsUp };

struct BadMoment {
    const char* name;
    std::string script;
    bool connect;              // the user presses Connect once the modem is ready
    Unplug unplug;
    const wchar_t* sequence;   // where it ends
    const wchar_t* field;      // a field of that screen, and its text
    const wchar_t* text;
};

class BadMomentTest : public ConnectionScenarioTest, public testing::WithParamInterface<BadMoment> {
protected:
    bool moment(Unplug when) const
    {
        auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance();
        switch (when) {
        case Unplug::WhileConnecting: return current() == "Connecting";
        case Unplug::WhilePinAsked: return screenClass() == L"PinScreen";
        case Unplug::WhileItsPopupIsUp: return !popups->GetPopups().empty();
        case Unplug::Never: break;
        }
        return false;
    }
};

// Pulled out while connecting, while the PIN is asked, while its popup is
// up; a refused connection. Each ends on the screen that says so.
TEST_P(BadMomentTest, EndsOnTheScreenThatSaysWhatHappened)
{
    const BadMoment& c = GetParam();
    host::StartNavigation();
    start(c.script);
    if (c.connect) {
        ASSERT_TRUE(until([&] { return ready(); }));
        press(UIKit::ID_CONNECT);
        EXPECT_EQ(current(), "Connecting") << "at once, before the device answers";
    }
    if (c.unplug != Unplug::Never) {
        ASSERT_TRUE(until([&] { return moment(c.unplug); }));
        const auto device = UIKit::DCControler::Instance()->GetSelectedDevice();
        ASSERT_TRUE(device && Devices::DeviceManager::DropDevice(device->GetId()));
    }
    advanceUntil([&] { return sequence() == c.sequence; }, 3000);
    expectAgreement(c.name);
    EXPECT_EQ(current(), Toolkit::UTF8::ToUTF8(c.sequence));
    // Long texts are wrapped to their box: compare them unwrapped.
    const auto unwrapped = [](TString<wchar_t> text) {
        std::replace(text.begin(), text.end(), L'\n', L' ');
        return Toolkit::UTF8::ToUTF8(text);
    };
    EXPECT_EQ(unwrapped(label(c.field)), unwrapped(c.text));
    if (c.sequence == TString<wchar_t>(L"ConnectionError")) {
        press(UIKit::ID_OK);
        EXPECT_TRUE(until([&] { return sequence() == L"Home"; })) << "the error read, the ready screen is back";
    }
}

const std::string c_pinModem = "A modem name=M imei=356938035643809 pin=1234\nA plug\nA init opened identified sim\n";
const std::string c_registered = std::string(c_readyModem) + "A register operator=Net\n";
INSTANTIATE_TEST_SUITE_P(
    Cases, BadMomentTest,
    testing::Values(
        BadMoment{"PulledWhileConnecting", c_registered, true, Unplug::WhileConnecting, L"NoDevice", L"Notice",
                  L"The device was unplugged during the connection, which has ended."},
        BadMoment{"PulledWhilePinAsked", c_pinModem + "A unlock\n", false, Unplug::WhilePinAsked, L"NoDevice",
                  L"Notice", L""},
        BadMoment{"PulledWhileItsPopupIsUp", "A modem name=M imei=356938035643809\nA plug\n", false,
                  Unplug::WhileItsPopupIsUp, L"NoDevice", L"Notice", L""},
        BadMoment{"RefusedConnection", std::string(c_readyModem) + "A refuse no-service\nA register operator=Net\n",
                  true, Unplug::Never, L"ConnectionError", L"Reason",
                  L"There is no mobile data coverage here.\nMove to another place and try again."}),
    [](const testing::TestParamInfo<BadMoment>& info) { return std::string(info.param.name); });

// Ten quick presses open one connection; its session is one entry of the
// history, with the time and the data of the connection.
TEST_F(ConnectionScenarioTest, TenConnectPressesOpenOneConnectionAndOneHistoryEntry)
{
    host::StartNavigation();
    auto counter = Toolkit::make_smart<ConnectCounter>();
    UIKit::DCControler::Instance()->Register(counter);
    start(c_registered);
    ASSERT_TRUE(until([&] { return ready(); }));
    UIKit::ScreenCtrl* home = screen();
    for (int i = 0; i < 10; ++i) {
        wxCommandEvent click(wxEVT_BUTTON, UIKit::ID_CONNECT);
        home->ProcessWindowEvent(click);
        wxTheApp->ProcessPendingEvents();
    }
    EXPECT_TRUE(advanceUntil([&] { return current() == "Connected"; }));
    EXPECT_TRUE(advanceUntil([&] { return label(L"Duration") >= L"00:00:02"; }))
        << "the time connected follows the clock: " << Toolkit::UTF8::ToUTF8(label(L"Duration"));
    EXPECT_EQ(counter->starts, 1);
    press(UIKit::ID_DISCONNECT);
    EXPECT_TRUE(advanceUntil([&] { return current() == "Home"; }));
    UIKit::DCControler::Instance()->Unregister(counter);
    // Read back as the history plug-in reads it after a restart.
    const auto entries = historyplugin::ConnectionHistory(m_home.Str()).Entries();
    ASSERT_EQ(entries.size(), 1u) << "one session";
    EXPECT_GE(entries[0].durationSeconds, 2u);
    EXPECT_GT(entries[0].bytesReceived, entries[0].bytesSent);
    EXPECT_GT(entries[0].bytesSent, 0u);
}

// The PIN screen hands what was typed to the controller for the device that
// asked: a wrong PIN comes back refused with one attempt fewer, the right
// one unlocks the device.
TEST_F(ConnectionScenarioTest, PinScreenAnswersTheControllerWithTheTypedCode)
{
    host::StartNavigation();
    start(c_pinModem + "A unlock\nA init unlocked completed\n");
    const auto answer = [&](const wchar_t* pin) {
        UIKit::Util::SetWindowLabel(screen(), TString<wchar_t>(L"PinCode"), pin);
        press(UIKit::ID_OK);
    };
    ASSERT_TRUE(advanceUntil([&] { return screenClass() == L"PinScreen"; })) << "no PIN screen for the request";
    EXPECT_EQ(label(L"DeviceName"), L"M");
    EXPECT_NE(label(L"Attempts").find(L"3"), TString<wchar_t>::npos);
    answer(L"1357");
    ASSERT_TRUE(advanceUntil([&] { return screenClass() == L"PinScreen" && !label(L"Refused").empty(); }))
        << "a refused PIN is asked again, saying so";
    EXPECT_NE(label(L"Attempts").find(L"2"), TString<wchar_t>::npos);
    EXPECT_TRUE(label(L"PinCode").empty()) << "the typed code stays on screen";
    answer(L"1234");
    EXPECT_TRUE(advanceUntil([&] {
        const auto device = UIKit::DCControler::Instance()->GetSelectedDevice();
        return device && device->GetInfo().lock == Devices::LockNone && screenClass() != L"PinScreen";
    })) << "the right PIN did not unlock the device";
}

// A scenario that cannot be read names its file and line, and brings no device.
TEST_F(ConnectionScenarioTest, ScenarioWithASyntaxErrorGivesItsLineAndNoDevice)
{
    m_options.scenario = m_home.Write("bad.scenario", "A modem name=A\nA plug\nA wait soon\n").string();
    Devices::Simulation::Scenario scenario;
    std::vector<TString<wchar_t>> messages;
    EXPECT_FALSE(host::ReadScenario(m_options.scenario, scenario, messages));
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.front().rfind(Toolkit::UTF8::ToUNICODE(m_options.scenario + ":3:"), 0), 0u);
    EXPECT_FALSE(host::StartDevices(m_options));
    advance(20000);
    wxTheApp->ProcessPendingEvents();
    UIKit::DCControler::DeviceMap devices;
    UIKit::DCControler::Instance()->GetDevices(devices);
    EXPECT_TRUE(devices.empty()) << "a device of the refused scenario came up";
}

// Buttons and hot keys move the host from screen to screen through the
// pack's event rows, and the usage screen keeps the monthly allowance in
// the preferences.
TEST_F(HostTest, ButtonsAndHotKeysMoveThroughThePacksEventRows)
{
    testsupport::ErrorCapture errors;
    host::StartNavigation();
    EXPECT_TRUE(errors.Lines().empty()) << errors.Lines().front();
    // The home row fires at start; with no device the connection area says so.
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return screenClass() == L"NoDeviceScreen"; }));
    UIKit::ScreenCtrl* home = m_dashboard->GetCurrentRunningScreen();

    struct Step {
        const char* what;
        int id;           // a button to click, or 0
        int key;          // a key to press, or 0
        const wchar_t* screen;
        const wchar_t* navButton;
    } steps[] = {
        {"Usage button (a global row)", UIKit::ID_MAP, 0, L"UsageScreen", L"NavUsage"},
        {"Home button", UIKit::ID_HOME, 0, L"NoDeviceScreen", L"NavHome"},
        {"About button", UIKit::ID_HELP, 0, L"AboutScreen", L"NavAbout"},
        {"Back on the about screen (a row of its own sequence)", UIKit::ID_BACK, 0, L"NoDeviceScreen", L"NavHome"},
        {"the usage plug-in's hot key", 0, WXK_F3, L"UsageScreen", L"NavUsage"},
        {"the home plug-in's hot key", 0, WXK_F2, L"NoDeviceScreen", L"NavHome"},
    };
    for (const auto& step : steps) {
        if (step.id)
            EXPECT_TRUE(host::Click(*m_dashboard, step.id)) << step.what;
        else
            host::PressKey(*m_dashboard, step.key);
        EXPECT_TRUE(testsupport::ProcessEventsUntil([&] { return screenClass() == step.screen; })) << step.what;
        EXPECT_TRUE(selected(step.navButton)) << step.what;
    }
    EXPECT_EQ(m_dashboard->GetCurrentRunningScreen(), home) << "a screen is built once and shown again";
    int shown = 0;
    for (wxWindow* child : m_dashboard->GetControlPlaceholder()->GetChildren())
        shown += child->IsShown();
    EXPECT_EQ(shown, 1) << "the screens left are hidden";
}

// Labels are read with the descriptions: a language change reads them again
// for the window and the screens built so far, and leaves texts that code
// wrote (the notice of a device gone) to that code.
TEST_F(HostTest, LanguageChangeRelabelsTheWindowAndTheBuiltScreens)
{
    host::StartNavigation();
    ASSERT_TRUE(testsupport::ProcessEventsUntil([&] { return screenClass() == L"NoDeviceScreen"; }));
    UIKit::ScreenCtrl* home = m_dashboard->GetCurrentRunningScreen();
    UIKit::Util::SetWindowLabel(home, TString<wchar_t>(L"Notice"), L"written by the screen");
    auto appearance = UIKit::Appearance::Instance();
    appearance->UseCulture(appearance->FindCultureByName(L"fr"));
    m_dashboard->OnCultureChanged();
    auto label = [](wxWindow* root, const wchar_t* name) {
        auto* control = UIKit::Util::RecursiveFindControl(root, name);
        return control ? control->GetControlLabel() : TString<wchar_t>(L"(missing)");
    };
    EXPECT_EQ(label(m_dashboard, L"NavHome"), L"Accueil");
    EXPECT_EQ(label(home, L"Title"), L"Aucun appareil");
    EXPECT_EQ(label(home, L"Notice"), L"written by the screen") << "written by the screen, not relabelled";
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_MAP));
    EXPECT_EQ(label(m_dashboard, L"NavUsage"), L"Conso");
    EXPECT_EQ(label(m_dashboard->GetCurrentRunningScreen(), L"UsedLabel"), L"Consommé ce mois-ci")
        << "a screen built after the change";
}

TEST_F(HostTest, UsageScreenKeepsTheAllowanceInThePreferences)
{
    Preferences::AppPreferences::Open("DataUsage")->Set("MonthlyAllowance", TString<wchar_t>(L"4096"));
    host::StartNavigation();
    ASSERT_TRUE(host::Click(*m_dashboard, UIKit::ID_MAP));
    auto* allowance = dynamic_cast<UIKit::NumericUpDownCtrl*>(
        UIKit::Util::RecursiveFindControl(m_dashboard->GetCurrentRunningScreen(), L"Allowance"));
    ASSERT_NE(allowance, nullptr);
    EXPECT_EQ(allowance->GetValue(), 4096);

    allowance->SetValue(1536);
    TString<wchar_t> saved;
    EXPECT_TRUE(testsupport::ProcessEventsUntil([&] {
        Preferences::AppPreferences::Open("DataUsage")->Get("MonthlyAllowance", saved);
        return saved == L"1536";
    })) << "saved: " << saved;
}

} // namespace
