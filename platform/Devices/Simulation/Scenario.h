#pragma once
// A scenario for the simulated modems, as read from its file: one script
// per modem (or ghost), each a list of steps that the modem plays in order
// on its own thread.
#include "Devices/DeviceEvent.h"
#include "Devices/DeviceInfo.h"
#include "Toolkit/TString.h"

#include <cstdint>
#include <vector>

namespace Devices::Simulation {

enum class StepKind {
    Plug, Pull, Wait, Init, Unlock, FlightMode, SimError, Register, Signal, Operator, Roaming, Tech,
    Connect, Traffic, Disconnect, Features, Error, Refuse,
};

struct ScenarioStep {
    StepKind kind = StepKind::Wait;
    unsigned int line = 0;
    uint64_t duration = 0;        // Wait; Unlock and FlightMode: give up after (0: never)
    std::vector<InitializationStep> initSteps; // Init; SimError: its one failing step
    unsigned int number = 0;      // Signal, Tech, Features, Refuse; Traffic: bytes sent per second
    unsigned int number2 = 0;     // Traffic: bytes received per second
    bool flag = false;            // Roaming; Register: roaming
    TString<wchar_t> text;        // Operator, Error; Register: the operator
};

struct ModemScript {
    TString<char> label;
    unsigned int line = 0;        // where it was declared
    bool ghost = false;
    unsigned long long id = 0;    // stable: derived from the IMEI (or the label)
    DeviceInfo info;              // identity and starting state
    // The SIM's codes. They stay inside the simulation: never logged.
    TString<char> pin;
    TString<char> puk;
    unsigned int pinAttempts = 3;
    unsigned int pukAttempts = 10;
    bool attemptsKnown = true;    // false: the modem does not tell the attempts left
    std::vector<ScenarioStep> steps;
};

struct Scenario {
    TString<char> file;
    std::vector<ModemScript> modems;
    unsigned int errors = 0;      // lines refused (each one logged)
};

} // namespace Devices::Simulation
