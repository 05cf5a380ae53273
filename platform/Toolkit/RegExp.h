#pragma once
// A PCRE2 regular expression compiled once in UTF mode. Patterns and texts
// are UTF-8 (or wide strings, converted); groups come back as UTF-8.
//
//   Match(text)   finds the first match anywhere in the text (a search);
//   IsMatch(text) is true only when the whole text matches, so "-?[0-9]+"
//                 accepts "12" but not "12a".
//
// A pattern that does not compile, or a match that fails (invalid UTF-8
// text, backtracking limit reached), throws RegExpException with PCRE2's
// message; a text that simply does not match is not an error. A compiled
// RegExp may be used by several threads at once.
#include "Toolkit/RegExpException.h"
#include "Toolkit/TString.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace Toolkit {

class RegExp {
public:
    enum Flags : unsigned {
        IgnoreCase = 1, // letters match either case
        Multiline = 2,  // ^ and $ also match at line breaks inside the text
        DotAll = 4,     // . also matches line breaks
        Extended = 8,   // blanks and # comments in the pattern are ignored
    };

    // The result of one match: group 0 is the whole match, then the
    // numbered groups; a group that took no part in the match is absent.
    class MatchResult {
    public:
        bool Success() const { return m_success; }
        explicit operator bool() const { return m_success; }
        // Number of groups including group 0 (0 when nothing matched).
        size_t GroupCount() const { return m_groups.size(); }
        bool HasGroup(size_t index) const { return index < m_groups.size() && m_groups[index].has_value(); }
        // The group's text; empty when absent.
        TString<char> Group(size_t index) const;
        bool HasGroup(const TString<char>& name) const;
        TString<char> Group(const TString<char>& name) const;
        // Byte offset of the group in the UTF-8 text; npos when absent.
        size_t Position(size_t index) const;

    private:
        friend class RegExp;
        struct Span {
            size_t offset;
            TString<char> text;
        };
        bool m_success = false;
        std::vector<std::optional<Span>> m_groups;
        std::shared_ptr<const std::map<TString<char>, size_t>> m_names;
    };

    explicit RegExp(const TString<char>& pattern, unsigned flags = 0);
    explicit RegExp(const TString<wchar_t>& pattern, unsigned flags = 0);
    explicit RegExp(const char* pattern, unsigned flags = 0) : RegExp(TString<char>(pattern), flags) {}
    explicit RegExp(const wchar_t* pattern, unsigned flags = 0) : RegExp(TString<wchar_t>(pattern), flags) {}
    ~RegExp();
    RegExp(const RegExp&) = delete;
    RegExp& operator=(const RegExp&) = delete;

    MatchResult Match(const TString<char>& text) const;
    MatchResult Match(const TString<wchar_t>& text) const;
    bool IsMatch(const TString<char>& text) const;
    bool IsMatch(const TString<wchar_t>& text) const;

    const TString<char>& GetPattern() const { return m_pattern; }
    // Number of capturing groups in the pattern.
    size_t GetGroupCount() const { return m_captureCount; }

private:
    struct Code;
    MatchResult run(std::string_view text, bool whole) const;
    void readGroupNames();

    TString<char> m_pattern;
    std::unique_ptr<Code> m_code;
    size_t m_captureCount = 0;
    std::shared_ptr<const std::map<TString<char>, size_t>> m_names;
};

} // namespace Toolkit
