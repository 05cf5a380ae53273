#pragma once
#include "module/Export.h"
// The cultures of the selected pack, which one is in use, and its string
// table. The culture is chosen from an ordered list of preferred cultures
// (built-in "en", "es", "fr"; the system language; the user's stored
// choice; a culture asked for by the host, which replaces them all), and
// its strings are loaded on top of those of its neutral parent (fr-CA over
// fr) from the pack's "strings.<culture>" language files.
//
// The pack is handed to each operation that reads it; this class keeps no
// pack of its own. GUI thread only.
#include "appearance/StringTable.h"

#include "Toolkit/CultureInfo.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <vector>

namespace UIKit {

class IPack;

class UIKIT_API CultureChoice {
public:
    using Culture = Toolkit::smart_ptr<Toolkit::CultureInfo>;
    using Cultures = std::vector<Culture>;

    CultureChoice();

    // Forgets the pack's cultures and the culture in use.
    void Reset();
    // Moves the system language, then the user's stored choice, to the
    // front of the preferred cultures; a non-empty requested culture then
    // becomes the only one. Each step is logged.
    void OrderPreferences(const TString<wchar_t>& requested);

    // The pack's cultures: preferred ones first in preference order, the
    // others as listed, each with the native name of its file headers.
    // False when the pack cannot be listed.
    bool LoadCulturesList(const IPack* pack);
    const Cultures& GetCultures() const { return m_cultures; }
    const Culture& GetCurrent() const { return m_current; }
    TString<wchar_t> GetCurrentName() const;
    Culture FindByName(const TString<wchar_t>& name) const;

    void SetPreferredOrder(const std::vector<TString<wchar_t>>& order) { m_preferred = order; }
    const std::vector<TString<wchar_t>>& GetPreferredOrder() const { return m_preferred; }
    void SetAsFirstPreferred(const TString<wchar_t>& name);
    // The culture stored in the user preferences, or empty.
    TString<wchar_t> GetUserPreference() const;
    void SetUserPreference(const TString<wchar_t>& name);
    // The process locale's language as a culture code ("fr_FR.UTF-8" gives "fr-FR").
    static TString<wchar_t> GetSystemLang();

    // Uses the first pack culture a preferred culture leads to; with none,
    // logs and keeps the culture and strings in use.
    void UseDefaultCulture(const IPack* pack);
    // Uses culture when it is one of the pack's, otherwise UseDefault.
    void UseCulture(const IPack* pack, const Culture& culture);
    // Reloads the table: the parent culture's files, then the culture's own.
    bool LoadStringsDefinitions(const IPack* pack);
    // Adds one culture's files to the table; problems in them are reported
    // with the file and line.
    bool LoadStringsDefinitions(const IPack* pack, const Culture& culture);
    // Parses one line into the table, logging a line that is not a
    // definition.
    void ParseStringsDefinitions(const TString<wchar_t>& line);
    // The native name of the last "// CULTURE" header of the culture's files.
    TString<wchar_t> ExtractNativeName(const IPack* pack, const TString<wchar_t>& code) const;

    const StringTable& Strings() const { return m_strings; }
    StringTable& Strings() { return m_strings; }

private:
    // Where a parsed line comes from; a null file for a line given directly.
    struct Origin {
        const TString<wchar_t>* file = nullptr;
        size_t line = 0;
    };
    void parseLine(const TString<wchar_t>& line, const Origin& origin);
    static void reportBadLine(const TString<wchar_t>& line, const TString<wchar_t>& reason, const Origin& origin);
    // Visits every line of the culture's language files, file by file.
    template <class Visit>
    static bool forEachLine(const IPack* pack, const TString<wchar_t>& code, Visit visit);

    Cultures m_cultures;
    Culture m_current;
    std::vector<TString<wchar_t>> m_preferred;
    StringTable m_strings;
    const TString<char> m_preferenceSection;
    const TString<char> m_preferenceKey;
};

} // namespace UIKit
