#include "appearance/TextExcerpt.h"

#include "Toolkit/UTF8.h"

#include <cstdio>

namespace UIKit {
namespace {

void appendEscaped(TString<wchar_t>& out, wchar_t c)
{
    switch (c) {
    case L'\n': out += L"\\n"; return;
    case L'\r': out += L"\\r"; return;
    case L'\t': out += L"\\t"; return;
    case L'\\': out += L"\\\\"; return;
    default: break;
    }
    // C0 and C1 controls, DEL, and the Unicode line and paragraph separators.
    const bool control = c < 0x20 || (c >= 0x7f && c < 0xa0) || c == 0x2028 || c == 0x2029;
    if (!control) {
        out += c;
        return;
    }
    wchar_t code[12];
    std::swprintf(code, sizeof code / sizeof *code, c > 0xff ? L"\\u%04x" : L"\\x%02x", unsigned(c));
    out += code;
}

} // namespace

TString<wchar_t> TextExcerpt::Of(const TString<wchar_t>& text, size_t maxChars)
{
    TString<wchar_t> out;
    const size_t shown = text.size() < maxChars ? text.size() : maxChars;
    for (size_t i = 0; i < shown; ++i)
        appendEscaped(out, text[i]);
    if (shown < text.size())
        out += L"...";
    return out;
}

std::string TextExcerpt::Name(const TString<wchar_t>& name)
{
    return Toolkit::UTF8::ToUTF8(Of(name, c_maxNameChars));
}

} // namespace UIKit
