#pragma once
// Connects the host to its devices: reads the scenario the simulated
// modems play, starts the notification popups and the device controller,
// and shows a popup for each device that comes or goes.
#include "Options.h"

#include "Devices/Simulation/Scenario.h"
#include "Toolkit/TString.h"

#include <vector>

namespace host {

// Reads a scenario; each line refused gives one "file:line: cause" in
// messages. True only for a scenario read without any error.
bool ReadScenario(const TString<char>& path, Devices::Simulation::Scenario& scenario,
                  std::vector<TString<wchar_t>>& messages);

// GUI thread, once the plug-ins are loaded. A scenario with errors is
// reported on stderr and the host runs with no device; false then.
bool StartDevices(const Options& options);

// GUI thread, at exit: stops the controller (pending requests give up) and
// closes the popups.
void StopDevices();

} // namespace host
