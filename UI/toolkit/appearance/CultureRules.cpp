#include "appearance/CultureRules.h"

#include "Toolkit/UTF8.h"

#include <algorithm>
#include <initializer_list>

namespace UIKit {
namespace {

bool isOneOf(const TString<wchar_t>& name, std::initializer_list<const wchar_t*> names)
{
    return std::any_of(names.begin(), names.end(), [&](const wchar_t* n) { return name.equalsNoCase(n); });
}

} // namespace

TString<wchar_t> CultureRules::CodeFromLocaleName(const TString<char>& locale)
{
    TString<char> code = locale;
    const auto underscore = code.find('_');
    if (underscore != TString<char>::npos && underscore > 0) {
        code = code.substr(0, code.find('.'));
        if (code.find('_') != code.rfind('_'))
            code = code.substr(0, code.rfind('_'));
        const auto first = code.find('_');
        if (first != TString<char>::npos)
            code[first] = '-';
    }
    return Toolkit::UTF8::ToUNICODE(code);
}

void CultureRules::MoveToFront(std::vector<TString<wchar_t>>& preferred, const TString<wchar_t>& name)
{
    if (!name.empty()) {
        const auto found = std::find(preferred.begin(), preferred.end(), name);
        if (found != preferred.end())
            preferred.erase(found);
    }
    preferred.insert(preferred.begin(), name);
}

Toolkit::smart_ptr<Toolkit::CultureInfo> CultureRules::Choose(const std::vector<TString<wchar_t>>& preferred,
                                                              const Cultures& cultures)
{
    for (const auto& wanted : preferred) {
        Toolkit::smart_ptr<Toolkit::CultureInfo> candidate;
        for (const auto& culture : cultures) {
            if (!culture)
                continue;
            if (matchesExactly(wanted, culture->GetName()))
                return FindByName(cultures, culture->GetName());
            // The last fallback in the pack's order wins.
            if (isFallback(wanted, culture->GetName()))
                candidate = culture;
        }
        if (candidate)
            return candidate;
    }
    return {};
}

Toolkit::smart_ptr<Toolkit::CultureInfo> CultureRules::FindByName(const Cultures& cultures,
                                                                  const TString<wchar_t>& name)
{
    for (const auto& culture : cultures)
        if (culture && culture->GetName() == name)
            return culture;
    return {};
}

// Equal ignoring case, or the old and new names of one Chinese script.
bool CultureRules::matchesExactly(const TString<wchar_t>& preferred, const TString<wchar_t>& culture)
{
    if (preferred.equalsNoCase(culture))
        return true;
    return (preferred.equalsNoCase(L"zh-CHS") && culture.equalsNoCase(L"zh-Hans")) ||
           (preferred.equalsNoCase(L"zh-Hans") && culture.equalsNoCase(L"zh-CHS")) ||
           (preferred.equalsNoCase(L"zh-CHT") && culture.equalsNoCase(L"zh-Hant")) ||
           (preferred.equalsNoCase(L"zh-Hant") && culture.equalsNoCase(L"zh-CHT"));
}

// A regional culture falls back to its language (fr-CA to fr); Chinese
// falls back to the simplified or the traditional script by region.
bool CultureRules::isFallback(const TString<wchar_t>& preferred, const TString<wchar_t>& culture)
{
    const TString<wchar_t> language = preferred.substr(0, 2);
    if (!language.equalsNoCase(L"zh"))
        return culture.equalsNoCase(language);
    if (isOneOf(preferred, {L"zh-SG", L"zh-CN", L"zh-Hans", L"zh-CHS"}))
        return isOneOf(culture, {L"zh-Hans", L"zh-CHS"});
    return isOneOf(culture, {L"zh-Hant", L"zh-CHT"});
}

} // namespace UIKit
