#include "appearance/LanguageLine.h"

namespace UIKit {
namespace {

using Text = TString<wchar_t>;

bool isKeyChar(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_';
}

// The blanks allowed between a key and its text.
bool isBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\v' || c == L'\f';
}

// Where a text ends: the last quote after open on its stretch of the line
// (a line break ends a stretch), or npos when that stretch has no other quote.
size_t closingQuote(const Text& line, size_t open)
{
    size_t stretchEnd = line.find(L'\n', open);
    if (stretchEnd == Text::npos)
        stretchEnd = line.size();
    const size_t close = line.rfind(L'"', stretchEnd - 1);
    return close > open && close != Text::npos ? close : Text::npos;
}

// Backslash-n pairs become line breaks, left to right, in one pass.
Text withLineBreaks(const wchar_t* begin, const wchar_t* end)
{
    Text text;
    text.reserve(size_t(end - begin));
    for (const wchar_t* c = begin; c != end; ++c) {
        if (*c == L'\\' && c + 1 != end && c[1] == L'n') {
            text += L'\n';
            ++c;
        } else {
            text += *c;
        }
    }
    return text;
}

bool isStructureOrComment(const Text& line)
{
    return line.HasSubstring(L"STRINGTABLE") || line.HasSubstring(L"BEGIN") || line.HasSubstring(L"END") ||
           line.HasSubstring(L"//");
}

bool isCultureCodeChar(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'-';
}

size_t skip(const Text& line, size_t pos, bool (*accept)(wchar_t))
{
    while (pos < line.size() && accept(line[pos]))
        ++pos;
    return pos;
}

} // namespace

LanguageLine LanguageLine::Parse(const Text& line)
{
    LanguageLine parsed;
    if (line.empty())
        return parsed;
    // The first quote that has a closing quote after it opens the text.
    size_t open = line.find(L'"');
    size_t close = Text::npos;
    while (open != Text::npos && (close = closingQuote(line, open)) == Text::npos) {
        const size_t lineBreak = line.find(L'\n', open);
        open = lineBreak == Text::npos ? Text::npos : line.find(L'"', lineBreak);
    }
    if (open == Text::npos) {
        parsed.kind = isStructureOrComment(line) ? Ignored : NoMatch;
        return parsed;
    }
    // The key is the run of key characters before the blanks before the quote.
    size_t keyEnd = open;
    while (keyEnd > 0 && isBlank(line[keyEnd - 1]))
        --keyEnd;
    size_t keyBegin = keyEnd;
    while (keyBegin > 0 && isKeyChar(line[keyBegin - 1]))
        --keyBegin;
    if (keyBegin == keyEnd) {
        parsed.kind = EmptyKey;
        return parsed;
    }
    parsed.kind = Definition;
    for (size_t i = keyBegin; i < keyEnd; ++i)
        parsed.key += char(line[i]); // key characters are ASCII
    parsed.text = withLineBreaks(line.data() + open + 1, line.data() + close);
    return parsed;
}

bool LanguageLine::ParseHeader(const Text& line, Text& nativeName)
{
    static const Text marker(L"CULTURE");
    if (!line.StartsWith(L"//"))
        return false;
    size_t pos = skip(line, 2, isBlank);
    if (line.compare(pos, marker.size(), marker) != 0)
        return false;
    pos = skip(line, pos + marker.size(), isBlank);
    const size_t codeEnd = skip(line, pos, isCultureCodeChar);
    if (codeEnd == pos)
        return false;
    pos = skip(line, codeEnd, isBlank);
    nativeName = Text(line.substr(pos, line.find(L'\n', pos) - pos));
    return true;
}

} // namespace UIKit
