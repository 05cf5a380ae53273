#include "Toolkit/IniFile.h"

#include "Toolkit/AtomicFile.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/RegularFile.h"
#include "Toolkit/UTF8.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>

namespace Toolkit {
namespace {

constexpr size_t c_reportedLineNumbers = 10;
// Characters of a malformed line quoted in its log entry.
constexpr size_t c_excerptLength = 40;

constexpr wchar_t c_byteOrderMark = 0xFEFF;

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t'; }

// Tab is the one control character a line may hold; the others (line
// breaks and NUL among them) would not read back or are binary garbage.
bool hasControlCharacter(std::wstring_view text)
{
    return std::any_of(text.begin(), text.end(), [](wchar_t c) { return (c < 0x20 && c != L'\t') || c == 0x7F; });
}

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
    if (hasControlCharacter(name))
        return "a control character";
    if (name != name.Trim())
        return "blanks at its ends";
    if (!isKey)
        return name.HasSubstring(L"]") ? "a \"]\"" : nullptr;
    if (name.empty())
        return "no name";
    if (name.HasSubstring(L"="))
        return "a \"=\"";
    if (name.front() == L'[' || name.front() == L';' || name.front() == L'#' || name.front() == c_byteOrderMark)
        return "a \"[\", \";\", \"#\" or byte-order mark in front";
    return nullptr;
}

TString<wchar_t> excerpt(const TString<wchar_t>& line)
{
    if (line.size() <= c_excerptLength)
        return line;
    return TString<wchar_t>(line.substr(0, c_excerptLength)) + L"...";
}

// The next line of `text` from `pos`, which moves past its terminator (LF,
// CR LF or a lone CR).
std::string_view nextLine(std::string_view text, size_t& pos)
{
    const size_t begin = pos;
    const size_t stop = std::min(text.find_first_of("\r\n", begin), text.size());
    pos = stop;
    if (pos < text.size() && text[pos++] == '\r' && pos < text.size() && text[pos] == '\n')
        ++pos;
    return text.substr(begin, stop - begin);
}

} // namespace

bool IniFile::Open(const TString<wchar_t>& path, Report report) { return Open(UTF8::ToUTF8(path), report); }

bool IniFile::Open(const TString<char>& path, Report report)
{
    Clear();
    m_path = path;
    std::string bytes;
    switch (RegularFile::Read(path, m_limits.fileBytes, bytes)) {
    case RegularFile::Result::Read:
        break;
    case RegularFile::Result::Truncated:
        // The cut last line would give a wrong value: keep whole lines only.
        bytes.resize(std::min(bytes.size(), bytes.find_last_of("\r\n") + 1));
        m_incomplete = true;
        break;
    case RegularFile::Result::Missing:
        TK_LOG(LogError) << "cannot read INI file " << path << ": it does not exist";
        return false;
    default:
        return false;
    }
    parse(bytes, report);
    return true;
}

void IniFile::Load(std::string_view text, Report report)
{
    Clear();
    parse(text, report);
}

void IniFile::Clear()
{
    m_sections.clear();
    m_sectionIndex.clear();
    m_malformed.clear();
    m_keys = 0;
    m_incomplete = false;
}

void IniFile::parse(std::string_view text, Report report)
{
    Findings findings;
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    Section* current = &section(L"");
    size_t pos = 0;
    for (size_t number = 1; pos < text.size(); ++number) {
        if (!parseLine(nextLine(text, pos), number, current, findings))
            m_malformed.push_back(number);
    }
    if (report == Report::Log)
        this->report(findings);
}

bool IniFile::parseLine(std::string_view bytes, size_t number, Section*& current, Findings& findings)
{
    if (bytes.size() > m_limits.lineBytes) {
        if (!findings.longLines++)
            findings.firstLongLine = number;
        return false;
    }
    const auto line = UTF8::ToUNICODE(bytes);
    // Only valid UTF-8 survives the round trip unchanged.
    if (hasControlCharacter(line) || UTF8::ToUTF8(line) != bytes) {
        if (findings.firstMalformed.empty())
            findings.firstMalformed = excerpt(line);
        return false;
    }
    if (parseText(line, number, current, findings))
        return true;
    if (findings.firstMalformed.empty())
        findings.firstMalformed = excerpt(line);
    return false;
}

bool IniFile::parseText(const TString<wchar_t>& line, size_t number, Section*& current, Findings& findings)
{
    auto text = line.Trim();
    // Byte-order marks inside the file (files joined together) are no part
    // of the line; at the very start one is dropped with the bytes.
    while (!text.empty() && text.front() == c_byteOrderMark)
        text = TString<wchar_t>(text.substr(1)).Trim();
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
    if (!findEntry(*current, key) && m_keys >= m_limits.keys) {
        if (!findings.firstKeyOverLimit)
            findings.firstKeyOverLimit = number;
        m_incomplete = true;
        return true;
    }
    setEntry(*current, key, value);
    return true;
}

void IniFile::report(const Findings& findings) const
{
    if (findings.firstLongLine)
        TK_LOG(LogError) << m_path << ':' << findings.firstLongLine << ": line longer than the limit of "
                         << m_limits.lineBytes << " bytes skipped";
    if (findings.firstKeyOverLimit)
        TK_LOG(LogError) << m_path << ':' << findings.firstKeyOverLimit << ": more keys than the limit of "
                         << m_limits.keys << "; this key and the ones after it are ignored";
    // Lines skipped for their length alone were reported above.
    if (m_malformed.size() == findings.longLines)
        return;
    LogStream log(LogError, __FILE__, __LINE__, __func__);
    log << m_path << ':' << m_malformed.front() << ": malformed line skipped";
    if (m_malformed.front() != findings.firstLongLine)
        log << ": \"" << findings.firstMalformed << '"';
    if (m_malformed.size() > 1) {
        log << " (" << (m_malformed.size() - 1) << " more, at line";
        for (size_t i = 1; i < m_malformed.size() && i <= c_reportedLineNumbers; ++i)
            log << ' ' << m_malformed[i];
        log << (m_malformed.size() - 1 > c_reportedLineNumbers ? " ...)" : ")");
    }
}

IniFile::Section* IniFile::findSection(const TString<wchar_t>& name)
{
    const auto it = m_sectionIndex.find(name.ToLower());
    return it == m_sectionIndex.end() ? nullptr : &m_sections[it->second];
}

const IniFile::Section* IniFile::findSection(const TString<wchar_t>& name) const
{
    return const_cast<IniFile*>(this)->findSection(name);
}

IniFile::Section& IniFile::section(const TString<wchar_t>& name)
{
    if (auto* found = findSection(name))
        return *found;
    m_sectionIndex.emplace(name.ToLower(), m_sections.size());
    m_sections.push_back({name, {}, {}});
    return m_sections.back();
}

IniFile::Entry* IniFile::findEntry(Section& section, const TString<wchar_t>& key)
{
    const auto it = section.index.find(key.ToLower());
    return it == section.index.end() ? nullptr : &section.entries[it->second];
}

const IniFile::Entry* IniFile::findEntry(const Section& section, const TString<wchar_t>& key)
{
    return findEntry(const_cast<Section&>(section), key);
}

void IniFile::setEntry(Section& section, const TString<wchar_t>& key, const TString<wchar_t>& value)
{
    if (auto* entry = findEntry(section, key)) {
        entry->value = value;
        return;
    }
    section.index.emplace(key.ToLower(), section.entries.size());
    section.entries.push_back({key, value});
    ++m_keys;
}

void IniFile::reindex(Section& section)
{
    section.index.clear();
    for (size_t i = 0; i < section.entries.size(); ++i)
        section.index.emplace(section.entries[i].key.ToLower(), i);
}

void IniFile::reindexSections()
{
    m_sectionIndex.clear();
    m_keys = 0;
    for (size_t i = 0; i < m_sections.size(); ++i) {
        m_sectionIndex.emplace(m_sections[i].name.ToLower(), i);
        m_keys += m_sections[i].entries.size();
    }
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
    if (!why && hasControlCharacter(value)) {
        why = "a control character";
        what = "value";
    }
    if (why) {
        TK_LOG(LogError) << "cannot set [" << sectionName << "] " << key << " in " << m_path << ": the " << what
                         << " holds " << why;
        return false;
    }
    setEntry(section(sectionName), key, value);
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
    if (s->entries.size() == before)
        return false;
    m_keys -= before - s->entries.size();
    reindex(*s);
    return true;
}

bool IniFile::RemoveSection(const TString<wchar_t>& section)
{
    if (std::erase_if(m_sections, [&](const Section& s) { return s.name.equalsNoCase(section); }) == 0)
        return false;
    reindexSections();
    return true;
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
    // Written straight as UTF-8, piece by piece: no wide copy of the whole file.
    std::string text;
    const auto append = [&](std::wstring_view piece) { text += UTF8::ToUTF8(piece); };
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
            text += text.empty() ? "[" : "\n[";
            append(s->name);
            text += "]\n";
        }
        for (const auto& entry : s->entries) {
            append(entry.key);
            text += '=';
            append(quoteIfNeeded(entry.value));
            text += '\n';
        }
    }
    return TString<char>(std::move(text));
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
