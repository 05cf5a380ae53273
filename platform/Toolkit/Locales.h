#pragma once
// Number formatting conventions of the process's current C locale (the
// one set with setlocale; "C" until the host sets another).
#include "Toolkit/TString.h"

namespace Toolkit {

class Locales {
public:
    // "." in the C locale, "," in fr_FR and most of Europe.
    static TString<wchar_t> GetDecimalSeparator();
    // Empty in the C locale.
    static TString<wchar_t> GetThousandsSeparator();
};

} // namespace Toolkit
