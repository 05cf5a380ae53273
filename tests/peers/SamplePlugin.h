#pragma once
// The plug-in interface of the loader tests' peer libraries.
#include "Toolkit/smart_ptr.h"

struct SampleParameters {
    int base = 0;
};

class SamplePlugin {
public:
    virtual ~SamplePlugin() = default;
    virtual int Answer() const = 0;
    // Another object made by the library's code.
    virtual Toolkit::smart_ptr<SamplePlugin> MakeAnother() const = 0;
};
