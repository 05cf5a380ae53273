#pragma once
// A culture offered by an appearance pack: its code ("fr", "zh-Hans") and
// the name it has in its own language ("Français").
#include "Toolkit/TString.h"

namespace Toolkit {

class CultureInfo {
public:
    CultureInfo(const TString<wchar_t>& name, const TString<wchar_t>& nativeName);

    const TString<wchar_t>& GetName() const { return m_name; }
    const TString<wchar_t>& GetNativeName() const { return m_nativeName; }
    // The neutral culture: the code up to its first "-" ("fr" for "fr-CA").
    TString<wchar_t> GetParentName() const;

private:
    TString<wchar_t> m_name;
    TString<wchar_t> m_nativeName;
};

} // namespace Toolkit
