#pragma once
// A library of the suite that takes part in the module system: it registers
// itself when loaded, and the host initialises and releases every
// registered module at its start and stop.

namespace Toolkit {

class LibModule {
public:
    virtual ~LibModule() = default;
    virtual void Initialize() = 0;
    virtual void Release() = 0;
};

} // namespace Toolkit
