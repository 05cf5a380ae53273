#include "appearance/CultureChoice.h"

#include "appearance/CultureRules.h"
#include "appearance/IPack.h"
#include "appearance/LanguageLine.h"
#include "appearance/TextExcerpt.h"
#include "xml/ErrorSink.h"

#include "Preferences/AppPreferences.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

#include <algorithm>
#include <clocale>
#include <cstring>

namespace UIKit {

using Toolkit::LogError;
using Toolkit::LogInfo;

namespace {

// An entry written on behalf of one of the appearance's public operations,
// under that operation's name.
Toolkit::LogStream logAs(int severity, const char* operation)
{
    return Toolkit::LogStream(severity, __FILE__, __LINE__, operation);
}

const TString<wchar_t> c_stringsPrefix(L"strings.");
const wchar_t* const c_parseError = L"Error while parsing Language String Definition : ";

TString<wchar_t> joined(const std::vector<TString<wchar_t>>& names)
{
    TString<wchar_t> text;
    for (const auto& name : names)
        text += (text.empty() ? L"" : L", ") + name;
    return text;
}

} // namespace

CultureChoice::CultureChoice()
    : m_preferred{L"en", L"es", L"fr"}, m_preferenceSection("Appearance"), m_preferenceKey("Culture")
{
}

void CultureChoice::Reset()
{
    m_current.reset();
    m_cultures.clear();
}

void CultureChoice::OrderPreferences(const TString<wchar_t>& requested)
{
    const TString<wchar_t> system = GetSystemLang();
    logAs(LogInfo, "Init") << "Operating System Language: " << system;
    SetAsFirstPreferred(system);
    const TString<wchar_t> user = GetUserPreference();
    if (!user.empty()) {
        logAs(LogInfo, "Init") << "Culture/Language from user preferences: " << user;
        SetAsFirstPreferred(user);
    }
    if (!requested.empty()) {
        logAs(LogInfo, "Init") << "Culture/Language from command line parameters: " << requested;
        m_preferred.assign(1, requested);
    }
    logAs(LogInfo, "Init") << "\nLanguages in the Preference Order: " << joined(m_preferred);
}

template <class Visit>
bool CultureChoice::forEachLine(const IPack* pack, const TString<wchar_t>& code, Visit visit)
{
    std::vector<TString<wchar_t>> files;
    if (!pack || !pack->ListFiles(c_stringsPrefix + code, files))
        return false;
    for (const auto& file : files)
        pack->ReadLines(file, [&](size_t number, const TString<wchar_t>& line) { return visit(file, number, line); });
    return true;
}

bool CultureChoice::LoadCulturesList(const IPack* pack)
{
    m_cultures.clear();
    std::vector<TString<wchar_t>> folders;
    if (!pack || !pack->ListFolders(c_stringsPrefix + L"*", folders))
        return false;
    std::vector<TString<wchar_t>> found;
    for (const auto& folder : folders) {
        TString<wchar_t> code(folder.substr(folder.rfind(L'.') + 1));
        if (!code.empty()) // a bare "strings." folder names no culture
            found.push_back(std::move(code));
    }
    const auto add = [&](const TString<wchar_t>& code) {
        m_cultures.push_back(Toolkit::make_smart<Toolkit::CultureInfo>(code, ExtractNativeName(pack, code)));
    };
    for (const auto& preferred : m_preferred) {
        const auto code = std::find(found.begin(), found.end(), preferred);
        if (code != found.end()) {
            add(*code);
            found.erase(code);
        }
    }
    std::for_each(found.begin(), found.end(), add);
    std::vector<TString<wchar_t>> names;
    for (const auto& culture : m_cultures)
        names.push_back(culture->GetName());
    TK_LOG(LogInfo) << "\n Cultures in the current pack: " << joined(names);
    return true;
}

TString<wchar_t> CultureChoice::GetCurrentName() const
{
    return m_current ? m_current->GetName() : TString<wchar_t>();
}

CultureChoice::Culture CultureChoice::FindByName(const TString<wchar_t>& name) const
{
    return CultureRules::FindByName(m_cultures, name);
}

void CultureChoice::SetAsFirstPreferred(const TString<wchar_t>& name)
{
    CultureRules::MoveToFront(m_preferred, name);
}

TString<wchar_t> CultureChoice::GetUserPreference() const
{
    TString<wchar_t> culture;
    const auto preferences = Preferences::AppPreferences::Open(m_preferenceSection);
    if (preferences && !preferences->Get(m_preferenceKey, culture))
        culture.clear();
    return culture;
}

void CultureChoice::SetUserPreference(const TString<wchar_t>& name)
{
    const auto preferences = Preferences::AppPreferences::Open(m_preferenceSection);
    if (preferences)
        preferences->Set(m_preferenceKey, name);
}

TString<wchar_t> CultureChoice::GetSystemLang()
{
    const char* locale = std::setlocale(LC_ALL, nullptr);
    // Mixed categories answer "LC_CTYPE=...;..."; the messages' language is the one that counts.
    if (locale && std::strchr(locale, '='))
        locale = std::setlocale(LC_MESSAGES, nullptr);
    return CultureRules::CodeFromLocaleName(locale ? locale : "");
}

void CultureChoice::UseDefaultCulture(const IPack* pack)
{
    const auto chosen = CultureRules::Choose(m_preferred, m_cultures);
    if (!chosen) {
        TK_LOG(LogError) << "Unable to load a Culture/Language!";
        return;
    }
    m_current = chosen;
    TK_LOG(LogInfo) << "Default Culture Selected is '" << chosen->GetName() << "' .";
    LoadStringsDefinitions(pack);
}

void CultureChoice::UseCulture(const IPack* pack, const Culture& culture)
{
    if (!culture || std::find(m_cultures.begin(), m_cultures.end(), culture) == m_cultures.end()) {
        UseDefaultCulture(pack);
        return;
    }
    m_current = culture;
    TK_LOG(LogInfo) << "From now, use Culture: '" << culture->GetName() << "'.";
    LoadStringsDefinitions(pack);
}

bool CultureChoice::LoadStringsDefinitions(const IPack* pack)
{
    m_strings.Clear();
    const TString<wchar_t> name = GetCurrentName();
    const TString<wchar_t> parent = name.substr(0, name.find(L'-'));
    // The specific culture's strings go on top of its neutral parent's.
    const bool parentLoaded = LoadStringsDefinitions(pack, FindByName(parent));
    const bool ownLoaded = parent != name && LoadStringsDefinitions(pack, m_current);
    return parentLoaded || ownLoaded;
}

bool CultureChoice::LoadStringsDefinitions(const IPack* pack, const Culture& culture)
{
    if (!culture) {
        TK_LOG(LogError) << "The current pack <" << (pack ? pack->GetPath() : TString<wchar_t>())
                         << "> doesn't contains the requested culture !";
        return false;
    }
    forEachLine(pack, culture->GetName(),
                [this](const TString<wchar_t>& file, size_t number, const TString<wchar_t>& line) {
                    parseLine(line, Origin{&file, number});
                    return true;
                });
    return pack != nullptr;
}

void CultureChoice::ParseStringsDefinitions(const TString<wchar_t>& line)
{
    parseLine(line, Origin{});
}

void CultureChoice::parseLine(const TString<wchar_t>& line, const Origin& origin)
{
    const LanguageLine parsed = LanguageLine::Parse(line);
    if (parsed.kind == LanguageLine::Definition)
        m_strings.Set(parsed.key, parsed.text);
    else if (parsed.kind == LanguageLine::EmptyKey)
        reportBadLine(line, L"  ,the parsed key value was empty!", origin);
    else if (parsed.kind == LanguageLine::NoMatch)
        reportBadLine(line, L"  ,the data line was ignored as it did no match to the expected definition!", origin);
}

// A line given directly is logged as two records; a line of a pack file is
// one report naming the file and the line. Either shows only a short,
// escaped excerpt of the line: its text comes from the pack.
void CultureChoice::reportBadLine(const TString<wchar_t>& line, const TString<wchar_t>& reason, const Origin& origin)
{
    const TString<wchar_t> excerpt = TextExcerpt::Of(line);
    if (!origin.file) {
        logAs(LogError, "ParseStringsDefinitions") << c_parseError << excerpt;
        logAs(LogError, "ParseStringsDefinitions") << reason;
        return;
    }
    const TString<wchar_t> why = reason.substr(reason.find_first_not_of(L" ,"));
    ErrorSink::Report(TextExcerpt::Name(*origin.file), int(origin.line),
                      Toolkit::UTF8::ToUTF8(c_parseError + excerpt + L": " + why));
}

TString<wchar_t> CultureChoice::ExtractNativeName(const IPack* pack, const TString<wchar_t>& code) const
{
    TString<wchar_t> nativeName;
    // A file's first header counts; a later file's header overrides it.
    forEachLine(pack, code, [&nativeName](const TString<wchar_t>&, size_t, const TString<wchar_t>& line) {
        return !LanguageLine::ParseHeader(line, nativeName);
    });
    return nativeName;
}

} // namespace UIKit
