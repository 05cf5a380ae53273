#pragma once
// The SIM of a simulated modem: its codes and the attempts left on them.
// It has no lock of its own; its modem guards it.
#include "Devices/ModemEnums.h"
#include "Devices/Simulation/Scenario.h"
#include "Toolkit/TString.h"

namespace Devices::Simulation {

class SimCard {
public:
    explicit SimCard(const ModemScript& script);
    ~SimCard();
    SimCard(const SimCard&) = delete;
    SimCard& operator=(const SimCard&) = delete;

    bool HasPin() const { return !m_pin.empty(); }
    // The code it waits for while locked: the PIN, or the PUK once the PIN
    // attempts are spent.
    LockKind Waits() const { return m_pinLeft ? LockSimPin : LockSimPuk; }
    // No PUK attempt left: the SIM is lost.
    bool IsBlocked() const { return m_pukLeft == 0; }
    // Attempts left as the modem tells them (c_attemptsUnknown if it does not).
    unsigned int PinAttempts() const { return m_known ? m_pinLeft : c_attemptsUnknown; }
    unsigned int PukAttempts() const { return m_known ? m_pukLeft : c_attemptsUnknown; }

    // Checks the PIN, or the PUK with the PIN that replaces the old one. A
    // right code restores every attempt; a wrong one costs one.
    bool Try(bool puk, const TString<char>& code, const TString<char>& newPin);

    // Overwrites a code before its memory is given back.
    static void Wipe(TString<char>& code);

private:
    TString<char> m_pin;
    TString<char> m_puk;
    const unsigned int m_pinAttempts;
    const unsigned int m_pukAttempts;
    const bool m_known;
    unsigned int m_pinLeft;
    unsigned int m_pukLeft;
};

} // namespace Devices::Simulation
