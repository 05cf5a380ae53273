// The simulated modems on the fake clock, with a listener that records
// what the devices say and answers their code requests from per-device
// queues, which the test thread may fill while the modems ask.
#include "Detection/DiscoveryControl.h"
#include "Devices/Device.h"
#include "Devices/DeviceManager.h"
#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "Devices/NetworkManager.h"
#include "TestSupport.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>


#include <gtest/gtest.h>

namespace {

struct Answer {
    std::string code;
    std::string newPin; // PUK answers only
};

class Recorder : public Devices::DeviceEvent {
public:
    // Entries: "found NAME", "lost NAME LOCK", "pin NAME ATTEMPTS", "puk NAME
    // ATTEMPTS", "retry" suffix on a repeated request after a refusal,
    // "cancel NAME", "info NAME".
    std::vector<std::string> Entries()
    {
        std::lock_guard l(m_mutex);
        return m_entries;
    }
    // Waits (in real time, as a guard only) until count entries start with
    // text.
    bool WaitFor(const std::string& text, size_t count = 1, int guardMs = 20000)
    {
        std::unique_lock l(m_mutex);
        return m_changed.wait_for(l, std::chrono::milliseconds(guardMs), [&] { return countLocked(text) >= count; });
    }
    size_t Count(const std::string& text)
    {
        std::lock_guard l(m_mutex);
        return countLocked(text);
    }
    void Give(const std::string& device, Answer a)
    {
        std::lock_guard l(m_mutex);
        m_answers[device].push_back(std::move(a));
    }

    // The device last found under this name, kept from the moment it came.
    Toolkit::smart_ptr<Devices::Device> Found(const std::string& device)
    {
        std::lock_guard l(m_mutex);
        return m_found[device];
    }

    void OnDeviceFound(Devices::Device& d) override
    {
        auto device = Devices::DeviceManager::GetDevice(d.GetId());
        std::lock_guard l(m_mutex);
        m_found[name(d)] = device;
        addLocked("found " + name(d));
    }
    // With the lock kind the device had when it went.
    void OnDeviceLost(Devices::Device& d) override
    {
        add("lost " + name(d) + " " + std::to_string(int(d.GetInfo().lock)));
    }
    void OnPinPukCodeRequestCancelled(Devices::Device& d) override { add("cancel " + name(d)); }
    void OnDeviceInformationUpdated(Devices::Device& d) override { add("info " + name(d)); }
    void OnPinCodeRequested(Devices::Device& d, Devices::SecurityCode, unsigned int attempts, TString<char>& pin,
                            bool retry, bool&) override
    {
        pin = request("pin", d, attempts, retry).code;
    }
    void OnPukCodeRequested(Devices::Device& d, Devices::SecurityCode, unsigned int attempts, TString<char>& puk,
                            TString<char>& newPin, bool retry, bool&) override
    {
        const Answer a = request("puk", d, attempts, retry);
        puk = a.code;
        newPin = a.newPin;
    }

private:
    static std::string name(Devices::Device& d)
    {
        const auto wide = d.GetName();
        return std::string(wide.begin(), wide.end());
    }
    size_t countLocked(const std::string& text) const
    {
        size_t n = 0;
        for (const auto& e : m_entries)
            n += e.rfind(text, 0) == 0;
        return n;
    }
    void add(std::string entry)
    {
        std::lock_guard l(m_mutex);
        addLocked(std::move(entry));
    }
    void addLocked(std::string entry)
    {
        // A request asked again without an answer is one entry.
        if (m_entries.empty() || m_entries.back() != entry)
            m_entries.push_back(std::move(entry));
        m_changed.notify_all();
    }
    Answer request(const char* kind, Devices::Device& d, unsigned int attempts, bool retry)
    {
        std::lock_guard l(m_mutex);
        const std::string who = name(d);
        addLocked(std::string(kind) + " " + who + " " +
                  (attempts == Devices::c_attemptsUnknown ? "?" : std::to_string(attempts)) + (retry ? " retry" : ""));
        auto& queue = m_answers[who];
        if (queue.empty())
            return {};
        Answer a = queue.front();
        queue.pop_front();
        return a;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_entries;
    std::map<std::string, std::deque<Answer>> m_answers;
    std::map<std::string, Toolkit::smart_ptr<Devices::Device>> m_found;
};

// Plays a scenario text from construction to destruction.
class SimulationRun {
public:
    explicit SimulationRun(const std::string& text)
        : recorder(Toolkit::make_smart<Recorder>()),
          backend(Devices::Simulation::ScenarioBackend::Install(
              Devices::Simulation::ScenarioParser::ParseText("test.scenario", text)))
    {
        Devices::DeviceManager::AddListener(recorder);
        Detection::DiscoveryControl::AddEventListener(Devices::DeviceManager::Instance());
        Detection::DiscoveryControl::Start(0xFFFFFFFF);
    }
    ~SimulationRun()
    {
        Detection::DiscoveryControl::Stop();
        Detection::DiscoveryControl::RemoveEventListener(Devices::DeviceManager::Instance());
        Devices::DeviceManager::RemoveListener(recorder);
        Detection::DiscoveryControl::SetSource({});
        Devices::DeviceManager::SetBackend({});
    }
    testsupport::FakeClock clock;
    Toolkit::smart_ptr<Recorder> recorder;
    Toolkit::smart_ptr<Devices::Simulation::ScenarioBackend> backend;
};

// The requests and cancellations a run heard, in order.
std::vector<std::string> requests(Recorder& r)
{
    std::vector<std::string> out;
    for (const auto& e : r.Entries())
        if (e.rfind("pin", 0) == 0 || e.rfind("puk", 0) == 0 || e.rfind("cancel", 0) == 0)
            out.push_back(e);
    return out;
}

const std::string c_lockNone = std::to_string(int(Devices::LockNone));

struct CodeCase {
    const char* name;
    const char* attempts; // the modem's pin-attempts option
    std::vector<Answer> answers;
    std::vector<std::string> asked;
};

const CodeCase c_codeCases[] = {
    {"wrong PIN once", "3", {{"1119", ""}, {"7391", ""}}, {"pin A 3", "pin A 2 retry"}},
    {"three wrong PINs lead to the PUK", "3", {{"1119", ""}, {"2229", ""}, {"3339", ""}, {"81726354", "4682"}},
     {"pin A 3", "pin A 2 retry", "pin A 1 retry", "puk A 10 retry"}},
    {"wrong PUK costs a PUK attempt", "1", {{"1119", ""}, {"00000009", "4682"}, {"81726354", "4682"}},
     {"pin A 1", "puk A 10 retry", "puk A 9 retry"}},
    {"attempts not told", "unknown", {{"1119", ""}, {"7391", ""}}, {"pin A ?", "pin A ? retry"}},
};

} // namespace

// The SIM asks until the right code comes, counts the attempts down, turns
// to the PUK when the PIN attempts are spent, and no code ever reaches the
// log, at the most verbose level.
TEST(SimulatedModem, PinAndPukFlow)
{
    testsupport::LogCapture log;
    Toolkit::ILogger::Instance().SetMinimumSeverity(Toolkit::LogInfo);
    for (const auto& c : c_codeCases) {
        SCOPED_TRACE(c.name);
        SimulationRun run(std::string("A modem name=A pin=7391 puk=81726354 pin-attempts=") + c.attempts +
                          "\nA plug\nA unlock\nA pull\n");
        for (const auto& a : c.answers)
            run.recorder->Give("A", a);
        ASSERT_TRUE(run.recorder->WaitFor("lost A"));
        EXPECT_EQ(requests(*run.recorder), c.asked);
        EXPECT_EQ(run.recorder->Count("lost A " + c_lockNone), 1u);
    }
    const std::wstring all = log.Dump();
    for (const wchar_t* code : {L"7391", L"1119", L"2229", L"3339", L"81726354", L"00000009", L"4682"})
        EXPECT_EQ(all.find(code), std::wstring::npos) << "a code in the log";
}

// However a device goes during a request, the request ends (cancelled when
// the device itself goes), and every later operation on it fails cleanly.
TEST(SimulatedModem, DeviceVanishingDuringARequestFailsCleanly)
{
    enum class Way { PulledOut, Dropped, Stopped };
    const struct {
        Way way;
        const char* script;
        std::vector<std::string> heard;
    } cases[] = {
        {Way::PulledOut, "A unlock giveup=2s\nA pull\n", {"pin A 3", "cancel A"}},
        {Way::Dropped, "A unlock\n", {"pin A 3"}},
        {Way::Stopped, "A unlock\n", {"pin A 3", "cancel A"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.script);
        auto run = std::make_unique<SimulationRun>(std::string("A modem name=A pin=7391\nA plug\n") + c.script);
        ASSERT_TRUE(run->recorder->WaitFor("pin A"));
        const auto device = run->recorder->Found("A");
        ASSERT_TRUE(device);
        const auto network = device->GetNetworkManager();
        ASSERT_TRUE(network);
        auto recorder = run->recorder;
        if (c.way == Way::Dropped) {
            EXPECT_TRUE(Devices::DeviceManager::DropDevice(device->GetId()));
        }
        if (c.way == Way::Stopped)
            run.reset();
        ASSERT_TRUE(recorder->WaitFor("lost A"));
        // A code answered for the device that is gone is never asked for.
        recorder->Give("A", {"7391", ""});

        EXPECT_FALSE(Devices::DeviceManager::GetDevice(device->GetId()) || device->IsPresent());
        EXPECT_EQ(device->Connect(), -1);
        EXPECT_FALSE(device->SetPower(Devices::PowerOn));
        EXPECT_EQ(network->Disconnect(Devices::DisconnectApplicationStopping), -1);
        EXPECT_EQ(requests(*recorder), c.heard);

        if (c.way == Way::Dropped) {
            // Discovery brings a dropped device back under the same identity.
            Detection::DiscoveryControl::Refresh();
            ASSERT_TRUE(recorder->WaitFor("found A", 2));
            const auto again = Devices::DeviceManager::GetDevice(device->GetId());
            EXPECT_TRUE(again && again.get() != device.get());
        }
    }
}

// Two modems ask for their PINs at the same time from their own threads
// while this thread answers and reads them: each code reaches the modem it
// was meant for (a code sent to the other one would be refused and asked
// again as a retry). Also run under ThreadSanitizer.
TEST(SimulatedModem, TwoModemsAskWhileTheTestThreadAnswers)
{
    const std::string story = " plug\n$ unlock\n$ register operator=O\n$ connect\n$ traffic up=10 down=90\n"
                              "$ wait 3s\n$ disconnect\n$ pull\n";
    auto script = [&](const std::string& label, const std::string& pin, const std::string& imei) {
        std::string s = label + " modem name=" + label + " imei=" + imei + " pin=" + pin + "\n" + label + story;
        for (size_t at; (at = s.find('$')) != std::string::npos;)
            s.replace(at, 1, label);
        return s;
    };
    for (int round = 0; round < 3; ++round) {
        SimulationRun run(script("A", "1357", "356938035643809") + script("B", "2468", "490154203237518"));
        ASSERT_TRUE(run.recorder->WaitFor("pin A 3"));
        ASSERT_TRUE(run.recorder->WaitFor("pin B 3"));
        const auto a = run.recorder->Found("A"), b = run.recorder->Found("B");
        ASSERT_TRUE(a && b);
        run.recorder->Give("B", {"2468", ""});
        run.recorder->Give("A", {"1357", ""});
        while (!run.recorder->WaitFor("lost", 2, 0)) {
            // Readings and requests from this thread while the modems run.
            const auto info = a->GetInfo();
            EXPECT_LE(info.bytesSent, info.bytesReceived);
            b->GetConnectionTime();
            a->Disconnect(Devices::DisconnectByUser);
            std::this_thread::yield();
        }
        EXPECT_EQ(run.recorder->Count("lost A " + c_lockNone), 1u);
        EXPECT_EQ(run.recorder->Count("lost B " + c_lockNone), 1u);
        for (const auto& r : requests(*run.recorder))
            EXPECT_EQ(r.find("retry"), std::string::npos) << r;
    }
}

// Opening a connection takes its time on the clock, during which it can be
// cancelled; a network that refuses says why, and the next request starts
// without the old reason.
TEST(SimulatedModem, ConnectionOpensRefusesOrIsCancelled)
{
    const struct {
        const char* refuse;
        bool cancel;
        Devices::DeviceState state;
        Devices::ConnectionError error;
    } cases[] = {
        {"none", false, Devices::DeviceStateConnected, Devices::ConnectionErrorNone},
        {"denied", false, Devices::DeviceStateRegistered, Devices::ConnectionErrorDenied},
        {"none", true, Devices::DeviceStateRegistered, Devices::ConnectionErrorNone},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.refuse) + (c.cancel ? " cancelled" : ""));
        SimulationRun run(std::string("A modem name=A\nA plug\nA refuse ") + c.refuse + "\nA register operator=O\n");
        ASSERT_TRUE(run.recorder->WaitFor("info A"));
        const auto device = run.recorder->Found("A");
        const auto state = [&] { return device->GetInfo().state; };
        for (int second = 0; second < 2; ++second) {
            while (state() != Devices::DeviceStateRegistered)
                std::this_thread::yield();
            ASSERT_EQ(device->Connect(), 0);
            EXPECT_EQ(device->GetInfo().connectionError, Devices::ConnectionErrorNone) << "the old reason stays";
            while (state() != Devices::DeviceStateConnecting)
                std::this_thread::yield();
            if (c.cancel) {
                device->Disconnect(Devices::DisconnectByUser);
                while (state() != Devices::DeviceStateDisconnecting)
                    std::this_thread::yield();
            } else {
                run.clock.Advance(1000);
                EXPECT_EQ(state(), Devices::DeviceStateConnecting) << "opened too soon";
            }
            run.clock.Advance(1600);
            while (state() == Devices::DeviceStateConnecting || state() == Devices::DeviceStateDisconnecting)
                std::this_thread::yield();
            EXPECT_EQ(state(), c.state);
            EXPECT_EQ(device->GetInfo().connectionError, c.error);
            if (c.state == Devices::DeviceStateConnected)
                break;
        }
    }
}
