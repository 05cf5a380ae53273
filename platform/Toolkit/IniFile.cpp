#include "Toolkit/IniFile.h"

#include "Toolkit/AtomicFile.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/TextFile.h"
#include "Toolkit/UTF8.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>

namespace Toolkit {
namespace {

constexpr size_t c_reportedLineNumbers = 10;

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t'; }

bool hasLineBreakOrNul(std::wstring_view text) { return text.find_first_of(std::wstring_view(L"\r\n\0", 3)) != std::wstring_view::npos; }

bool isQuoted(std::wstring_view value) { return value.size() >= 2 && value.front() == L'"' && value.back() == L'"'; }

// Quotes keep blanks at the ends, and keep a value that is itself quoted intact.
TString<wchar_t> quoteIfNeeded(const TString<wchar_t>& value)
{
    if (!value.empty() && (isBlank(value.front()) || isBlank(value.back()) || isQuoted(value)))
        return L"\"" + value + L"\"";
    return value;
}

// Why a name cannot be written so that it reads back the same; null when it can.
const char* invalidName(const TString<wchar_t>& name, bool isKey)
{
    if (hasLineBreakOrNul(name))
        return "a line break or NUL";
    if (name != name.Trim())
        return "blanks at its ends";
    if (!isKey)
        return name.HasSubstring(L"]") ? "a \"]\"" : nullptr;
    if (name.empty())
        return "no name";
    if (name.HasSubstring(L"="))
        return "a \"=\"";
    if (name.front() == L'[' || name.front() == L';' || name.front() == L'#')
        return "a \"[\", \";\" or \"#\" in front";
    return nullptr;
}

} // namespace

bool IniFile::Open(const TString<wchar_t>& path, Report report) { return Open(UTF8::ToUTF8(path), report); }

bool IniFile::Open(const TString<char>& path, Report report)
{
    Clear();
    m_path = path;
    TextFile file;
    if (!file.Open(path))
        return false;
    Section* current = &section(L"");
    std::vector<TString<wchar_t>> malformedTexts;
    TString<wchar_t> line;
    while (file.ReadLine(line)) {
        if (!file.IsLastLineValid() || !parseLine(line, current)) {
            m_malformed.push_back(file.GetLineNumber());
            malformedTexts.push_back(line);
        }
    }
    if (file.HasError())
        return false;
    if (report == Report::Log)
        reportMalformed(malformedTexts);
    return true;
}

void IniFile::Clear()
{
    m_sections.clear();
    m_malformed.clear();
}

bool IniFile::parseLine(const TString<wchar_t>& line, Section*& current)
{
    if (line.find(L'\0') != TString<wchar_t>::npos)
        return false;
    const auto text = line.Trim();
    if (text.empty() || text.front() == L';' || text.front() == L'#')
        return true;
    if (text.front() == L'[') {
        const auto close = text.find(L']');
        if (close == TString<wchar_t>::npos)
            return false;
        const auto name = TString<wchar_t>(text.substr(1, close - 1)).Trim();
        const auto rest = TString<wchar_t>(text.substr(close + 1)).Trim();
        if (name.empty() || !(rest.empty() || rest.front() == L';' || rest.front() == L'#'))
            return false;
        current = &section(name);
        return true;
    }
    const auto equals = text.find(L'=');
    if (equals == TString<wchar_t>::npos)
        return false;
    const auto key = TString<wchar_t>(text.substr(0, equals)).Trim();
    if (key.empty())
        return false;
    auto value = TString<wchar_t>(text.substr(equals + 1)).Trim();
    if (isQuoted(value))
        value = TString<wchar_t>(value.substr(1, value.size() - 2));
    for (auto& entry : current->entries) {
        if (entry.key.equalsNoCase(key)) {
            entry.value = value;
            return true;
        }
    }
    current->entries.push_back({key, value});
    return true;
}

void IniFile::reportMalformed(const std::vector<TString<wchar_t>>& texts) const
{
    if (m_malformed.empty())
        return;
    LogStream log(LogError, __FILE__, __LINE__, __func__);
    log << m_path << ':' << m_malformed.front() << ": malformed line skipped: \"" << texts.front() << '"';
    if (m_malformed.size() > 1) {
        log << " (" << (m_malformed.size() - 1) << " more, at line";
        for (size_t i = 1; i < m_malformed.size() && i <= c_reportedLineNumbers; ++i)
            log << ' ' << m_malformed[i];
        log << (m_malformed.size() - 1 > c_reportedLineNumbers ? " ...)" : ")");
    }
}

IniFile::Section* IniFile::findSection(const TString<wchar_t>& name)
{
    auto it = std::find_if(m_sections.begin(), m_sections.end(), [&](const Section& s) { return s.name.equalsNoCase(name); });
    return it == m_sections.end() ? nullptr : &*it;
}

const IniFile::Section* IniFile::findSection(const TString<wchar_t>& name) const
{
    return const_cast<IniFile*>(this)->findSection(name);
}

IniFile::Section& IniFile::section(const TString<wchar_t>& name)
{
    if (auto* found = findSection(name))
        return *found;
    m_sections.push_back({name, {}});
    return m_sections.back();
}

const IniFile::Entry* IniFile::findEntry(const Section& section, const TString<wchar_t>& key)
{
    for (const auto& entry : section.entries)
        if (entry.key.equalsNoCase(key))
            return &entry;
    return nullptr;
}

bool IniFile::HasSection(const TString<wchar_t>& name) const
{
    const auto* s = findSection(name);
    // The unnamed section always exists internally; it counts once it has keys.
    return s && (!s->name.empty() || !s->entries.empty());
}

bool IniFile::HasKey(const TString<wchar_t>& section, const TString<wchar_t>& key) const
{
    const auto* s = findSection(section);
    return s && findEntry(*s, key);
}

bool IniFile::Get(const TString<wchar_t>& section, const TString<wchar_t>& key, TString<wchar_t>& value) const
{
    const auto* s = findSection(section);
    const auto* entry = s ? findEntry(*s, key) : nullptr;
    if (!entry)
        return false;
    value = entry->value;
    return true;
}

TString<wchar_t> IniFile::GetString(const TString<wchar_t>& section, const TString<wchar_t>& key,
                                    const TString<wchar_t>& defaultValue) const
{
    TString<wchar_t> value;
    return Get(section, key, value) ? value : defaultValue;
}

long long IniFile::GetInt(const TString<wchar_t>& section, const TString<wchar_t>& key, long long defaultValue) const
{
    TString<wchar_t> value;
    if (!Get(section, key, value) || value.empty())
        return defaultValue;
    wchar_t* end = nullptr;
    errno = 0;
    const long long number = std::wcstoll(value.c_str(), &end, 10);
    if (errno != 0 || end != value.c_str() + value.size() || isBlank(value.front()))
        return defaultValue;
    return number;
}

bool IniFile::Set(const TString<wchar_t>& sectionName, const TString<wchar_t>& key, const TString<wchar_t>& value)
{
    const char* why = invalidName(sectionName, false);
    const char* what = "section name";
    if (!why) {
        why = invalidName(key, true);
        what = "key";
    }
    if (!why && hasLineBreakOrNul(value)) {
        why = "a line break or NUL";
        what = "value";
    }
    if (why) {
        TK_LOG(LogError) << "cannot set [" << sectionName << "] " << key << " in " << m_path << ": the " << what
                         << " holds " << why;
        return false;
    }
    auto& s = section(sectionName);
    for (auto& entry : s.entries) {
        if (entry.key.equalsNoCase(key)) {
            entry.value = value;
            return true;
        }
    }
    s.entries.push_back({key, value});
    return true;
}

bool IniFile::SetInt(const TString<wchar_t>& section, const TString<wchar_t>& key, long long value)
{
    return Set(section, key, UTF8::ToUNICODE(std::to_string(value)));
}

bool IniFile::RemoveKey(const TString<wchar_t>& section, const TString<wchar_t>& key)
{
    auto* s = findSection(section);
    if (!s)
        return false;
    const auto before = s->entries.size();
    std::erase_if(s->entries, [&](const Entry& e) { return e.key.equalsNoCase(key); });
    return s->entries.size() != before;
}

bool IniFile::RemoveSection(const TString<wchar_t>& section)
{
    return std::erase_if(m_sections, [&](const Section& s) { return s.name.equalsNoCase(section); }) > 0;
}

std::vector<TString<wchar_t>> IniFile::GetSectionNames() const
{
    std::vector<TString<wchar_t>> names;
    for (const auto& s : m_sections)
        if (!s.name.empty() || !s.entries.empty())
            names.push_back(s.name);
    return names;
}

std::vector<TString<wchar_t>> IniFile::GetKeyNames(const TString<wchar_t>& section) const
{
    std::vector<TString<wchar_t>> names;
    if (const auto* s = findSection(section))
        for (const auto& entry : s->entries)
            names.push_back(entry.key);
    return names;
}

TString<char> IniFile::ToText() const
{
    TString<wchar_t> text;
    // The unnamed section has no header, so it must come first.
    std::vector<const Section*> order;
    for (const auto& s : m_sections)
        if (s.name.empty())
            order.push_back(&s);
    for (const auto& s : m_sections)
        if (!s.name.empty())
            order.push_back(&s);
    for (const auto* s : order) {
        if (!s->name.empty()) {
            if (!text.empty())
                text += L"\n";
            text += L"[" + s->name + L"]\n";
        }
        for (const auto& entry : s->entries)
            text += entry.key + L"=" + quoteIfNeeded(entry.value) + L"\n";
    }
    return UTF8::ToUTF8(text);
}

bool IniFile::Save()
{
    if (m_path.empty()) {
        TK_LOG(LogError) << "cannot save an INI file that has no path";
        return false;
    }
    return AtomicFile::Write(m_path, ToText());
}

bool IniFile::SaveAs(const TString<char>& path)
{
    m_path = path;
    return Save();
}

} // namespace Toolkit
