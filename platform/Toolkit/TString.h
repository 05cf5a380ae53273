#pragma once
// The suite's string type: a std::basic_string with the few helpers the
// library needs. Wide strings (wchar_t, 4-byte units on Linux) carry
// everything shown to the user; narrow strings carry UTF-8 bytes.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Toolkit {

namespace detail {
// Unicode case mapping that does not depend on the process's locale.
wchar_t wideToLower(wchar_t c);
wchar_t wideToUpper(wchar_t c);
} // namespace detail

template <class C>
class TString : public std::basic_string<C> {
public:
    using Base = std::basic_string<C>;
    using Base::Base;
    TString() = default;
    TString(const Base& s) : Base(s) {}
    TString(Base&& s) noexcept : Base(std::move(s)) {}
    TString(std::basic_string_view<C> s) : Base(s) {}

    // Compares ignoring case (ASCII and, for wide strings, the C library's
    // idea of letters); <0, 0, >0 like compare().
    int compareNoCase(const std::basic_string_view<C> other) const
    {
        const auto n = std::min(this->size(), other.size());
        for (size_t i = 0; i < n; ++i) {
            const auto a = lower((*this)[i]);
            const auto b = lower(other[i]);
            if (a != b)
                return a < b ? -1 : 1;
        }
        if (this->size() == other.size())
            return 0;
        return this->size() < other.size() ? -1 : 1;
    }
    bool equalsNoCase(const std::basic_string_view<C> other) const
    {
        return this->size() == other.size() && compareNoCase(other) == 0;
    }

    bool HasSubstring(const std::basic_string_view<C> needle) const
    {
        return this->find(needle) != Base::npos;
    }
    bool StartsWith(const std::basic_string_view<C> prefix) const
    {
        return std::basic_string_view<C>(*this).substr(0, prefix.size()) == prefix;
    }
    bool EndsWith(const std::basic_string_view<C> suffix) const
    {
        return this->size() >= suffix.size() &&
               std::basic_string_view<C>(*this).substr(this->size() - suffix.size()) == suffix;
    }

    TString ToLower() const
    {
        TString r(*this);
        std::transform(r.begin(), r.end(), r.begin(), [](C c) { return lower(c); });
        return r;
    }
    TString ToUpper() const
    {
        TString r(*this);
        std::transform(r.begin(), r.end(), r.begin(), [](C c) { return upper(c); });
        return r;
    }

    // Removes blanks, tabs and line ends at both ends.
    TString Trim() const
    {
        static constexpr C ws[] = {C(' '), C('\t'), C('\r'), C('\n'), C(0)};
        const auto first = this->find_first_not_of(ws);
        if (first == Base::npos)
            return TString();
        const auto last = this->find_last_not_of(ws);
        return TString(this->substr(first, last - first + 1));
    }

    // Splits at any of the separator characters; empty pieces are kept.
    std::vector<TString> Split(const std::basic_string_view<C> separators) const
    {
        std::vector<TString> parts;
        size_t start = 0;
        for (;;) {
            const auto pos = this->find_first_of(separators, start);
            parts.emplace_back(this->substr(start, pos == Base::npos ? Base::npos : pos - start));
            if (pos == Base::npos)
                return parts;
            start = pos + 1;
        }
    }

    void ReplaceAll(const std::basic_string_view<C> from, const std::basic_string_view<C> to)
    {
        if (from.empty())
            return;
        for (size_t pos = 0; (pos = this->find(from, pos)) != Base::npos; pos += to.size())
            this->replace(pos, from.size(), to);
    }

private:
    static C lower(C c)
    {
        if constexpr (sizeof(C) == 1)
            return (c >= 'A' && c <= 'Z') ? C(c - 'A' + 'a') : c;
        else
            return c < 0x80 ? ((c >= L'A' && c <= L'Z') ? C(c - L'A' + L'a') : c) : detail::wideToLower(c);
    }
    static C upper(C c)
    {
        if constexpr (sizeof(C) == 1)
            return (c >= 'a' && c <= 'z') ? C(c - 'a' + 'A') : c;
        else
            return c < 0x80 ? ((c >= L'a' && c <= L'z') ? C(c - L'a' + L'A') : c) : detail::wideToUpper(c);
    }
};

using WString = TString<wchar_t>;
using AString = TString<char>;

} // namespace Toolkit

template <class C>
struct std::hash<Toolkit::TString<C>> : std::hash<std::basic_string<C>> {};

using Toolkit::TString;
