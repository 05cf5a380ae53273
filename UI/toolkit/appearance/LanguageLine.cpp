#include "appearance/LanguageLine.h"

#include "Toolkit/RegExp.h"
#include "Toolkit/UTF8.h"

namespace UIKit {
namespace {

// Compiled once, on first use, and shared by every call.
const Toolkit::RegExp& definitionPattern()
{
    static const Toolkit::RegExp pattern("([A-Za-z0-9_]*)[ \\t\\r\\n\\v\\f]*\"(.*)\"", 0);
    return pattern;
}

const Toolkit::RegExp& headerPattern()
{
    static const Toolkit::RegExp pattern("^//\\s*CULTURE\\s*(?<name>[A-Za-z\\-]+)\\s*(?<nativeName>.*)", 0);
    return pattern;
}

// Backslash-n pairs become line breaks, scanning left to right.
TString<wchar_t> withLineBreaks(TString<wchar_t> text)
{
    for (size_t pos = 0; (pos = text.find(L"\\n", pos)) != TString<wchar_t>::npos; ++pos)
        text.replace(pos, 2, 1, L'\n');
    return text;
}

bool isStructureOrComment(const TString<wchar_t>& line)
{
    return line.HasSubstring(L"STRINGTABLE") || line.HasSubstring(L"BEGIN") || line.HasSubstring(L"END") ||
           line.HasSubstring(L"//");
}

} // namespace

LanguageLine LanguageLine::Parse(const TString<wchar_t>& line)
{
    LanguageLine parsed;
    if (line.empty())
        return parsed;
    const auto match = definitionPattern().Match(line);
    if (!match) {
        parsed.kind = isStructureOrComment(line) ? Ignored : NoMatch;
        return parsed;
    }
    parsed.key = match.Group(1);
    if (parsed.key.empty()) {
        parsed.kind = EmptyKey;
        return parsed;
    }
    parsed.kind = Definition;
    parsed.text = withLineBreaks(Toolkit::UTF8::ToUNICODE(match.Group(2)));
    return parsed;
}

bool LanguageLine::ParseHeader(const TString<wchar_t>& line, TString<wchar_t>& nativeName)
{
    if (!line.StartsWith(L"//"))
        return false;
    const auto match = headerPattern().Match(line);
    if (!match)
        return false;
    nativeName = Toolkit::UTF8::ToUNICODE(match.Group("nativeName"));
    return true;
}

} // namespace UIKit
