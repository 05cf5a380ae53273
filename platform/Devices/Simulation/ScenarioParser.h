#pragma once
// Reads a scenario (format in README.md). A line that cannot be read gives
// one log entry "file:line: cause" and is left out; the rest of the file is
// kept. Causes never quote a value, so the SIM codes of a scenario never
// reach the log.
#include "Devices/Simulation/Scenario.h"

namespace Devices::Simulation {

class ScenarioParser {
public:
    // A missing or unreadable file gives an empty scenario (logged).
    static Scenario ParseFile(const TString<char>& path);
    // name stands for the file in log entries.
    static Scenario ParseText(const TString<char>& name, const std::string& text);
};

} // namespace Devices::Simulation
