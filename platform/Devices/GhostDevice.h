#pragma once
// Something plugged in that looks like a device but cannot be used: it is
// shown (so the user knows it was seen) and never initialised.
#include "Toolkit/TString.h"

namespace Devices {

class GhostDevice {
public:
    GhostDevice(unsigned long long id, const TString<wchar_t>& name) : m_id(id), m_name(name) {}

    unsigned long long GetId() const { return m_id; }
    const TString<wchar_t>& GetName() const { return m_name; }

private:
    const unsigned long long m_id;
    const TString<wchar_t> m_name;
};

} // namespace Devices
