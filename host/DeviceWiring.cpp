#include "DeviceWiring.h"

#include "Devices/Simulation/ScenarioBackend.h"
#include "Devices/Simulation/ScenarioParser.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "device/DCControler.h"
#include "popups/NotifPopupManager.h"

#include <wx/app.h>

#include <cstdio>

#ifndef UIKIT_DEFAULT_SCENARIO_FILE
#define UIKIT_DEFAULT_SCENARIO_FILE ""
#endif

namespace host {
namespace {

// Keeps the errors logged while one file is read. The parser names the
// file at the start of each of its entries, which tells them apart from
// entries other threads write meanwhile.
class ScenarioErrors : public Toolkit::ILogSink {
public:
    explicit ScenarioErrors(const TString<wchar_t>& file) : m_prefix(file + L":") {}

    void Write(const Toolkit::LogEntry& entry) override
    {
        if (entry.severity == Toolkit::LogError && entry.message.rfind(m_prefix, 0) == 0)
            messages.push_back(entry.message);
    }

    std::vector<TString<wchar_t>> messages;

private:
    const TString<wchar_t> m_prefix;
};

// Puts a popup up when the device in use comes or goes (plugged in or
// out, or another one taken in its place).
// Called on the devices' threads, which may not read the string table: the
// text is made on the GUI thread, in the language shown at that moment.
class DevicePopups : public Devices::DeviceEvent {
public:
    void OnDeviceFound(Devices::Device& device) override { show("LB_POPUP_DEVICE_IN_USE", device.GetName()); }
    void OnDeviceLost(Devices::Device& device) override { show("LB_POPUP_DEVICE_GONE", device.GetName()); }

private:
    static void show(const char* key, const TString<wchar_t>& name)
    {
        if (wxTheApp)
            wxTheApp->CallAfter([key, name] { showOnGuiThread(key, name); });
    }
    static void showOnGuiThread(const char* key, const TString<wchar_t>& name)
    {
        if (const auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance())
            popups->AddTextWindow(key, name);
    }
};

Toolkit::smart_ptr<Devices::DeviceEvent> s_popups;

} // namespace

bool ReadScenario(const TString<char>& path, Devices::Simulation::Scenario& scenario,
                  std::vector<TString<wchar_t>>& messages)
{
    auto& logger = Toolkit::ILogger::Instance();
    auto errors = Toolkit::smart_ptr<ScenarioErrors>(new ScenarioErrors(Toolkit::UTF8::ToUNICODE(path)));
    Toolkit::smart_ptr<Toolkit::ILogSink> sink(errors);
    logger.AddSink(sink);
    scenario = Devices::Simulation::ScenarioParser::ParseFile(path);
    logger.RemoveSink(sink);
    messages = errors->messages;
    return scenario.errors == 0;
}

bool StartDevices(const Options& options)
{
    const TString<char> path = options.scenario.empty() ? TString<char>(UIKIT_DEFAULT_SCENARIO_FILE)
                                                        : options.scenario;
    Devices::Simulation::Scenario scenario;
    std::vector<TString<wchar_t>> messages;
    const bool usable = ReadScenario(path, scenario, messages);
    if (!usable) {
        // One line: the first error is the one to fix, later ones often follow from it.
        const TString<char> first = messages.empty() ? path + ": cannot be read" : Toolkit::UTF8::ToUTF8(messages.front());
        std::fprintf(stderr, "connection-manager: %s (scenario not used: running with no device%s)\n", first.c_str(),
                     messages.size() > 1 ? "; more errors in the log" : "");
        scenario = Devices::Simulation::Scenario{};
    }
    Devices::Simulation::ScenarioBackend::Install(std::move(scenario));
    if (auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance())
        popups->Start();
    auto controller = UIKit::Singleton<UIKit::DCControler>::Instance();
    if (!controller)
        return false;
    s_popups = Toolkit::smart_ptr<Devices::DeviceEvent>(new DevicePopups());
    controller->Register(s_popups);
    controller->Start();
    return usable;
}

void StopDevices()
{
    if (auto controller = UIKit::Singleton<UIKit::DCControler>::Instance()) {
        controller->Stop();
        if (s_popups)
            controller->Unregister(s_popups);
    }
    s_popups = nullptr;
    if (auto popups = UIKit::Singleton<UIKit::NotifPopupManager>::Instance())
        popups->Stop();
}

} // namespace host
