#pragma once
// Byte-level scanning over a range [pos, end) of a document buffer. Every
// function stays inside the range, whatever the bytes are; the byte at
// `end` is always a NUL the parser put there, never read as content.
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

inline char* SkipBlanks(char* pos, const char* end)
{
    while (pos < end && IsBlank(*pos))
        ++pos;
    return pos;
}

// The first `c` at or after pos, or end.
inline char* Find(char* pos, const char* end, char c)
{
    if (pos >= end)
        return const_cast<char*>(end);
    auto* found = static_cast<char*>(std::memchr(pos, c, static_cast<size_t>(end - pos)));
    return found ? found : const_cast<char*>(end);
}

// The first occurrence of the NUL-terminated `text` at or after pos, or end.
char* FindText(char* pos, const char* end, const char* text);

// Whether the range at pos begins with the literal.
template <size_t N>
inline bool StartsWith(const char* pos, const char* end, const char (&literal)[N])
{
    return static_cast<size_t>(end - pos) >= N - 1 && std::memcmp(pos, literal, N - 1) == 0;
}

// Whether the range at pos holds `name` (ASCII case ignored) followed by a
// byte that ends a name, or by the end of the range.
bool NameAt(const char* pos, const char* end, const char* name, size_t length);

// Position after a comment starting at pos ("<!--"), or end when the
// comment never closes.
char* SkipComment(char* pos, const char* end);

// Position after the next ">" at or after pos, or end.
char* AfterTagEnd(char* pos, const char* end);

// In the content of an element named `name`, starting at pos: the "<" of
// the element's own closing tag, counting nested elements of the same name
// (an opening tag counts unless it ends in "/>") and stepping over comments
// and CDATA sections; end when the element never closes. Where deeply
// nested elements of the same name close is added to `learnt`.
char* FindClosingTag(char* pos, const char* end, const char* name, size_t length, XmlClosingTags& learnt);

} // namespace UIKit::XmlScanner
