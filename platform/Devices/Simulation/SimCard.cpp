#include "Devices/Simulation/SimCard.h"

#include <algorithm>

namespace Devices::Simulation {

SimCard::SimCard(const ModemScript& script)
    : m_pin(script.pin), m_puk(script.puk), m_pinAttempts(script.pinAttempts), m_pukAttempts(script.pukAttempts),
      m_known(script.attemptsKnown), m_pinLeft(script.pinAttempts), m_pukLeft(script.pukAttempts)
{
}

SimCard::~SimCard()
{
    Wipe(m_pin);
    Wipe(m_puk);
}

void SimCard::Wipe(TString<char>& code)
{
    std::fill(code.begin(), code.end(), '\0');
    code.clear();
}

bool SimCard::Try(bool puk, const TString<char>& code, const TString<char>& newPin)
{
    if (IsBlocked())
        return false;
    const bool right = puk ? !m_pinLeft && code == m_puk && !newPin.empty() : m_pinLeft && code == m_pin;
    if (right) {
        if (puk) {
            Wipe(m_pin);
            m_pin = newPin;
        }
        m_pinLeft = m_pinAttempts;
        m_pukLeft = m_pukAttempts;
    } else {
        unsigned int& left = puk ? m_pukLeft : m_pinLeft;
        if (left > 0)
            --left;
    }
    return right;
}

} // namespace Devices::Simulation
