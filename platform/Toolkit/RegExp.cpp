#include "Toolkit/RegExp.h"

#include "Toolkit/UTF8.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <string>

namespace Toolkit {

struct RegExp::Code {
    pcre2_code* code = nullptr;
    pcre2_match_context* context = nullptr;
    ~Code()
    {
        pcre2_match_context_free(context);
        pcre2_code_free(code);
    }
};

namespace {

// Bounds backtracking so that a pathological pattern fails instead of hanging.
constexpr uint32_t c_matchLimit = 1000000;

TString<char> errorText(int code)
{
    PCRE2_UCHAR buffer[256];
    if (pcre2_get_error_message(code, buffer, sizeof buffer) < 0)
        return "PCRE2 error " + std::to_string(code);
    return TString<char>(reinterpret_cast<const char*>(buffer));
}

uint32_t compileOptions(unsigned flags)
{
    uint32_t options = PCRE2_UTF;
    if (flags & RegExp::IgnoreCase)
        options |= PCRE2_CASELESS;
    if (flags & RegExp::Multiline)
        options |= PCRE2_MULTILINE;
    if (flags & RegExp::DotAll)
        options |= PCRE2_DOTALL;
    if (flags & RegExp::Extended)
        options |= PCRE2_EXTENDED;
    return options;
}

struct MatchDataDeleter {
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
};

} // namespace

RegExp::RegExp(const TString<wchar_t>& pattern, unsigned flags) : RegExp(UTF8::ToUTF8(pattern), flags) {}

RegExp::RegExp(const TString<char>& pattern, unsigned flags) : m_pattern(pattern), m_code(std::make_unique<Code>())
{
    int error = 0;
    PCRE2_SIZE offset = 0;
    m_code->code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(),
                                 compileOptions(flags), &error, &offset, nullptr);
    if (!m_code->code)
        throw RegExpException(errorText(error) + " at offset " + std::to_string(offset) + " of pattern \"" +
                                  pattern + "\"",
                              long(offset));
    m_code->context = pcre2_match_context_create(nullptr);
    if (m_code->context)
        pcre2_set_match_limit(m_code->context, c_matchLimit);
    uint32_t captures = 0;
    pcre2_pattern_info(m_code->code, PCRE2_INFO_CAPTURECOUNT, &captures);
    m_captureCount = captures;
    readGroupNames();
}

RegExp::~RegExp() = default;

void RegExp::readGroupNames()
{
    uint32_t count = 0;
    uint32_t entrySize = 0;
    PCRE2_SPTR table = nullptr;
    pcre2_pattern_info(m_code->code, PCRE2_INFO_NAMECOUNT, &count);
    pcre2_pattern_info(m_code->code, PCRE2_INFO_NAMEENTRYSIZE, &entrySize);
    pcre2_pattern_info(m_code->code, PCRE2_INFO_NAMETABLE, &table);
    auto names = std::make_shared<std::map<TString<char>, size_t>>();
    for (uint32_t i = 0; i < count && table; ++i) {
        const PCRE2_SPTR entry = table + size_t(i) * entrySize;
        const size_t number = (size_t(entry[0]) << 8) | entry[1];
        names->emplace(reinterpret_cast<const char*>(entry + 2), number);
    }
    m_names = std::move(names);
}

RegExp::MatchResult RegExp::Match(const TString<char>& text) const { return run(text, false); }
RegExp::MatchResult RegExp::Match(const TString<wchar_t>& text) const { return run(UTF8::ToUTF8(text), false); }
bool RegExp::IsMatch(const TString<char>& text) const { return run(text, true).Success(); }
bool RegExp::IsMatch(const TString<wchar_t>& text) const { return run(UTF8::ToUTF8(text), true).Success(); }

RegExp::MatchResult RegExp::run(std::string_view text, bool whole) const
{
    MatchResult result;
    result.m_names = m_names;
    std::unique_ptr<pcre2_match_data, MatchDataDeleter> data(
        pcre2_match_data_create_from_pattern(m_code->code, nullptr));
    if (!data)
        throw RegExpException("cannot match pattern \"" + m_pattern + "\": out of memory");
    const uint32_t options = whole ? (PCRE2_ANCHORED | PCRE2_ENDANCHORED) : 0;
    const int rc = pcre2_match(m_code->code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, options,
                               data.get(), m_code->context);
    if (rc == PCRE2_ERROR_NOMATCH)
        return result;
    if (rc < 0)
        throw RegExpException("cannot match pattern \"" + m_pattern + "\": " + errorText(rc));
    const PCRE2_SIZE* ovector = pcre2_get_ovector_pointer(data.get());
    const size_t pairs = pcre2_get_ovector_count(data.get());
    result.m_success = true;
    result.m_groups.resize(m_captureCount + 1);
    for (size_t i = 0; i < result.m_groups.size() && i < pairs; ++i) {
        const PCRE2_SIZE start = ovector[2 * i];
        const PCRE2_SIZE end = ovector[2 * i + 1];
        if (start == PCRE2_UNSET)
            continue;
        // \K inside a look-ahead can put the start after the end; treat that as empty.
        const size_t length = end > start ? end - start : 0;
        result.m_groups[i] = MatchResult::Span{start, TString<char>(text.substr(start, length))};
    }
    return result;
}

TString<char> RegExp::MatchResult::Group(size_t index) const
{
    return HasGroup(index) ? m_groups[index]->text : TString<char>();
}

size_t RegExp::MatchResult::Position(size_t index) const
{
    return HasGroup(index) ? m_groups[index]->offset : TString<char>::npos;
}

bool RegExp::MatchResult::HasGroup(const TString<char>& name) const
{
    if (!m_names)
        return false;
    const auto it = m_names->find(name);
    return it != m_names->end() && HasGroup(it->second);
}

TString<char> RegExp::MatchResult::Group(const TString<char>& name) const
{
    if (!m_names)
        return {};
    const auto it = m_names->find(name);
    return it == m_names->end() ? TString<char>() : Group(it->second);
}

} // namespace Toolkit
