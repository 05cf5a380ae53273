#pragma once
#include "module/Export.h"
// Byte-level scanning over a range [pos, end) of a document's text. Every
// function stays inside the range, whatever the bytes are, and none writes:
// the text may belong to the caller.
#include <cstddef>
#include <cstring>

namespace UIKit {
class XmlClosingTags;
}

namespace UIKit::XmlScanner {

inline bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// A byte that ends an element name: blank, "/" or ">".
inline bool EndsName(char c)
{
    return IsBlank(c) || c == '/' || c == '>';
}

inline const char* SkipBlanks(const char* pos, const char* end)
{
    while (pos < end && IsBlank(*pos))
        ++pos;
    return pos;
}

// The first `c` at or after pos, or end.
inline const char* Find(const char* pos, const char* end, char c)
{
    if (pos >= end)
        return end;
    const auto* found = static_cast<const char*>(std::memchr(pos, c, static_cast<size_t>(end - pos)));
    return found ? found : end;
}

// The byte at pos + offset, or NUL past the end.
inline char At(const char* pos, const char* end, size_t offset)
{
    return static_cast<size_t>(end - pos) > offset ? pos[offset] : '\0';
}

// The first occurrence of the NUL-terminated `text` at or after pos, or end.
UIKIT_API const char* FindText(const char* pos, const char* end, const char* text);

// Whether the range at pos begins with the literal.
template <size_t N>
inline bool StartsWith(const char* pos, const char* end, const char (&literal)[N])
{
    return static_cast<size_t>(end - pos) >= N - 1 && std::memcmp(pos, literal, N - 1) == 0;
}

// Whether the range at pos holds `name` (ASCII case ignored) followed by a
// byte that ends a name, or by the end of the range. Inline: the search for
// a closing tag calls it for every tag that starts like the name.
inline bool NameAt(const char* pos, const char* end, const char* name, size_t length)
{
    if (static_cast<size_t>(end - pos) < length)
        return false;
    for (size_t i = 0; i < length; ++i) {
        const char a = pos[i];
        const char b = name[i];
        // Equal, or the same letter in the other case.
        if (a != b && ((a | 0x20) != (b | 0x20) || static_cast<unsigned char>((a | 0x20) - 'a') > 'z' - 'a'))
            return false;
    }
    return pos + length == end || EndsName(pos[length]);
}

// Position after a comment starting at pos ("<!--"), or end when the
// comment never closes.
UIKIT_API const char* SkipComment(const char* pos, const char* end);

// Position after the next ">" at or after pos, or end.
UIKIT_API const char* AfterTagEnd(const char* pos, const char* end);

// In the content of an element named `name`, starting at pos: the "<" of
// the element's own closing tag, counting nested elements of the same name
// (an opening tag counts unless it ends in "/>") and stepping over comments
// and CDATA sections; end when the element never closes. Where deeply
// nested elements of the same name close is added to `learnt`.
UIKIT_API const char* FindClosingTag(const char* pos, const char* end, const char* name, size_t length,
                           XmlClosingTags& learnt);

} // namespace UIKit::XmlScanner
