#pragma once
// The simulated backend: plays a scenario with one SimulatedModem thread
// per modem or ghost of the scenario. It is both the discovery source and
// the device backend; Install puts it in place of any other.
//
// Starting discovery starts every modem's script from its beginning;
// stopping discovery halts them (pending requests are cancelled, plugged
// devices are pulled out) and waits for their threads.
#include "Detection/DiscoverySource.h"
#include "Devices/DeviceBackend.h"
#include "Devices/Simulation/Scenario.h"
#include "Devices/Simulation/SimulatedModem.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"

#include <vector>

namespace Devices::Simulation {

class ScenarioBackend : public Detection::DiscoverySource, public DeviceBackend {
public:
    explicit ScenarioBackend(Scenario scenario);
    ~ScenarioBackend() override;

    // Makes a backend for the scenario and installs it as the discovery
    // source and the device manager's backend. Null (nothing installed)
    // while discovery runs.
    static Toolkit::smart_ptr<ScenarioBackend> Install(Scenario scenario);

    const Scenario& GetScenario() const { return m_scenario; }

    bool Start(unsigned int features, Toolkit::smart_ptr<Detection::DiscoveryEvent> sink) override;
    void Stop() override;
    void Refresh() override;
    Toolkit::smart_ptr<Device> Open(unsigned long long id) override;

private:
    const Scenario m_scenario;
    Toolkit::Mutex m_lock; // guards the list, not the modems
    std::vector<Toolkit::smart_ptr<SimulatedModem>> m_modems;
};

} // namespace Devices::Simulation
