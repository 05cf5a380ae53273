#include "Devices/Simulation/ScenarioBackend.h"

#include "Detection/DiscoveryControl.h"
#include "Devices/DeviceManager.h"
#include "Toolkit/ILogger.h"

namespace Devices::Simulation {

ScenarioBackend::ScenarioBackend(Scenario scenario) : m_scenario(std::move(scenario))
{
}

ScenarioBackend::~ScenarioBackend()
{
    Stop();
}

Toolkit::smart_ptr<ScenarioBackend> ScenarioBackend::Install(Scenario scenario)
{
    auto backend = Toolkit::make_smart<ScenarioBackend>(std::move(scenario));
    if (!Detection::DiscoveryControl::SetSource(backend))
        return {};
    DeviceManager::SetBackend(backend);
    return backend;
}

bool ScenarioBackend::Start(unsigned int features, Toolkit::smart_ptr<Detection::DiscoveryEvent> sink)
{
    std::vector<Toolkit::smart_ptr<SimulatedModem>> modems;
    for (const auto& script : m_scenario.modems)
        modems.push_back(Toolkit::make_smart<SimulatedModem>(script, features, sink));
    {
        Toolkit::MutexLocker lock(m_lock);
        if (!m_modems.empty())
            return false;
        m_modems = modems;
    }
    TK_LOG(Toolkit::LogInfo) << "scenario " << m_scenario.file << ": " << modems.size() << " simulated device(s)";
    for (const auto& m : modems)
        m->Start();
    return true;
}

void ScenarioBackend::Stop()
{
    std::vector<Toolkit::smart_ptr<SimulatedModem>> modems;
    {
        Toolkit::MutexLocker lock(m_lock);
        modems.swap(m_modems);
    }
    for (const auto& m : modems)
        m->Halt();
    for (const auto& m : modems)
        m->Join();
}

void ScenarioBackend::Refresh()
{
    Toolkit::MutexLocker lock(m_lock);
    for (const auto& m : m_modems)
        m->Refresh();
}

Toolkit::smart_ptr<Device> ScenarioBackend::Open(unsigned long long id)
{
    Toolkit::smart_ptr<SimulatedModem> modem;
    {
        Toolkit::MutexLocker lock(m_lock);
        for (const auto& m : m_modems)
            if (m->GetId() == id)
                modem = m;
    }
    return modem ? modem->Open(modem) : Toolkit::smart_ptr<Device>();
}

} // namespace Devices::Simulation
