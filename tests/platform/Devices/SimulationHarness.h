#pragma once
// Runs a scenario on the fake clock with a listener that records what the
// devices say and answers their code requests from per-device queues. The
// queues may be filled by the test thread while the modems ask.
#include "Detection/DiscoveryControl.h"
#include "Devices/Device.h"
#include "Devices/DeviceManager.h"
#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "TestSupport.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace devicetest {

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

} // namespace devicetest
