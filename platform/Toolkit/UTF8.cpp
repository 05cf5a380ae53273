#include "Toolkit/UTF8.h"

namespace Toolkit::UTF8 {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

bool isContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

} // namespace

TString<wchar_t> ToUNICODE(std::string_view utf8)
{
    TString<wchar_t> out;
    out.reserve(utf8.size());
    const auto* s = reinterpret_cast<const unsigned char*>(utf8.data());
    const size_t n = utf8.size();
    size_t i = 0;
    while (i < n) {
        const unsigned char c = s[i];
        if (c < 0x80) {
            out.push_back(wchar_t(c));
            ++i;
            continue;
        }
        int len = 0;
        char32_t cp = 0;
        char32_t min = 0;
        if ((c & 0xE0) == 0xC0) { len = 2; cp = c & 0x1F; min = 0x80; }
        else if ((c & 0xF0) == 0xE0) { len = 3; cp = c & 0x0F; min = 0x800; }
        else if ((c & 0xF8) == 0xF0) { len = 4; cp = c & 0x07; min = 0x10000; }
        if (len == 0) {
            out.push_back(kReplacement);
            ++i;
            continue;
        }
        int k = 1;
        for (; k < len && i + k < n && isContinuation(s[i + k]); ++k)
            cp = (cp << 6) | (s[i + k] & 0x3F);
        if (k < len) {
            // Truncated sequence: replace what was consumed, resync on the next byte.
            out.push_back(kReplacement);
            i += k;
            continue;
        }
        const bool overlong = cp < min;
        const bool surrogate = cp >= 0xD800 && cp <= 0xDFFF;
        out.push_back((overlong || surrogate || cp > 0x10FFFF) ? kReplacement : wchar_t(cp));
        i += len;
    }
    return out;
}

TString<char> ToUTF8(std::wstring_view wide)
{
    TString<char> out;
    out.reserve(wide.size());
    for (const wchar_t wc : wide) {
        auto cp = char32_t(wc);
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            cp = kReplacement;
        if (cp < 0x80) {
            out.push_back(char(cp));
        } else if (cp < 0x800) {
            out.push_back(char(0xC0 | (cp >> 6)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(char(0xE0 | (cp >> 12)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(char(0xF0 | (cp >> 18)));
            out.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

} // namespace Toolkit::UTF8
