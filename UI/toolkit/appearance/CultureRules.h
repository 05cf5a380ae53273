#pragma once
#include "module/Export.h"
// The rules that pick a culture: the culture code of a C locale name, the
// preference list, and which of a pack's cultures a preferred culture
// leads to (exactly, or by falling back to its neutral or Chinese script
// culture). Plain functions, so they can be checked on their own.
#include "Toolkit/CultureInfo.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <vector>

namespace UIKit {

class UIKIT_API CultureRules {
public:
    using Cultures = std::vector<Toolkit::smart_ptr<Toolkit::CultureInfo>>;

    // "fr_FR.UTF-8" gives "fr-FR"; names without "_" after the first
    // character ("C", "POSIX") stay as they are.
    static TString<wchar_t> CodeFromLocaleName(const TString<char>& locale);

    // Moves name to the front of the list: an equal, non-empty entry is
    // taken out first; an empty name is added all the same.
    static void MoveToFront(std::vector<TString<wchar_t>>& preferred, const TString<wchar_t>& name);

    // The culture of the pack that the first preferred culture able to lead
    // to one leads to; null when none does.
    static Toolkit::smart_ptr<Toolkit::CultureInfo> Choose(const std::vector<TString<wchar_t>>& preferred,
                                                           const Cultures& cultures);

    // The first culture named exactly name, or null.
    static Toolkit::smart_ptr<Toolkit::CultureInfo> FindByName(const Cultures& cultures,
                                                               const TString<wchar_t>& name);

private:
    static bool matchesExactly(const TString<wchar_t>& preferred, const TString<wchar_t>& culture);
    static bool isFallback(const TString<wchar_t>& preferred, const TString<wchar_t>& culture);
};

} // namespace UIKit
