#include "xml/XmlScanner.h"

#include "xml/XmlClosingTags.h"
#include "xml/XmlEntities.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace UIKit::XmlScanner {
namespace {

inline char lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

// After the name of an opening tag: whether the tag closes itself, and the
// position after its ">". Quoted values are stepped over, as the attribute
// reader does; "/" outside a value ends the tag as an empty element.
char* openingTagEnd(char* pos, const char* end, bool& selfClosing)
{
    selfClosing = false;
    while (pos < end) {
        const char c = *pos;
        if (c == '>')
            return pos + 1;
        if (c == '/') {
            selfClosing = true;
            return AfterTagEnd(pos, end);
        }
        if (c == '"') {
            pos = Find(pos + 1, end, '"');
            if (pos == end)
                return pos;
        }
        ++pos;
    }
    return pos;
}

// The next "<" at or after pos that can matter to FindClosingTag: one
// followed by "!", by the name's first letter, or by "/" and that letter.
// Every other "<" opens or closes an element of another name. Skins have
// some fifteen tags per control; this lets the search skip most of them
// sixteen bytes at a time.
char* nextCandidate(char* pos, const char* end, char first)
{
    const char folded = static_cast<char>(first | 0x20); // letters of either case match
#ifdef __SSE2__
    const __m128i lt = _mm_set1_epi8('<');
    const __m128i slash = _mm_set1_epi8('/');
    const __m128i bang = _mm_set1_epi8('!');
    const __m128i caseBit = _mm_set1_epi8(0x20);
    const __m128i letter = _mm_set1_epi8(folded);
    for (; end - pos >= 18; pos += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos + 1));
        const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos + 2));
        const __m128i opening = _mm_cmpeq_epi8(_mm_or_si128(b, caseBit), letter);
        const __m128i closing =
            _mm_and_si128(_mm_cmpeq_epi8(b, slash), _mm_cmpeq_epi8(_mm_or_si128(c, caseBit), letter));
        const __m128i wanted = _mm_or_si128(_mm_or_si128(opening, closing), _mm_cmpeq_epi8(b, bang));
        const int mask = _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, lt), wanted));
        if (mask)
            return pos + __builtin_ctz(static_cast<unsigned>(mask));
    }
#endif
    for (; pos < end; ++pos) {
        if (*pos != '<' || pos + 1 >= end)
            continue;
        const char next = pos[1];
        if (next == '!' || (next | 0x20) == folded || (next == '/' && pos + 2 < end && (pos[2] | 0x20) == folded))
            return pos;
    }
    return const_cast<char*>(end);
}

} // namespace

char* FindText(char* pos, const char* end, const char* text)
{
    const size_t length = std::strlen(text);
    while (pos < end) {
        pos = Find(pos, end, text[0]);
        if (static_cast<size_t>(end - pos) < length)
            return const_cast<char*>(end);
        if (std::memcmp(pos, text, length) == 0)
            return pos;
        ++pos;
    }
    return const_cast<char*>(end);
}

bool NameAt(const char* pos, const char* end, const char* name, size_t length)
{
    if (static_cast<size_t>(end - pos) < length)
        return false;
    for (size_t i = 0; i < length; ++i)
        if (lower(pos[i]) != lower(name[i]))
            return false;
    return pos + length == end || EndsName(pos[length]);
}

char* SkipComment(char* pos, const char* end)
{
    char* close = FindText(pos + 4, end, "-->");
    return close == end ? close : close + 3;
}

char* AfterTagEnd(char* pos, const char* end)
{
    char* close = Find(pos, end, '>');
    return close == end ? close : close + 1;
}

char* FindClosingTag(char* pos, const char* end, const char* name, size_t length, XmlClosingTags& learnt)
{
    const char first = lower(name[0]);
    auto& open = learnt.Open();
    open.clear();
    size_t depth = 1;
    for (pos = nextCandidate(pos, end, first); pos < end; pos = nextCandidate(pos, end, first)) {
        const char next = pos[1]; // the NUL at end when pos is the last byte
        if (next == '/') {
            if (NameAt(pos + 2, end, name, length)) {
                if (depth > XmlClosingTags::kMinDepth) {
                    learnt.Add(open.back(), pos);
                    open.pop_back();
                }
                if (--depth == 0)
                    return pos;
            }
            pos += 2;
        } else if (next == '!') {
            if (StartsWith(pos, end, "<!--"))
                pos = SkipComment(pos, end);
            else if (StartsWith(pos, end, CDATA_IN))
                pos = FindText(pos + CDATA_IN_LEN, end, CDATA_OUT);
            else
                pos += 2;
        } else if (lower(next) == first && length > 0 && NameAt(pos + 1, end, name, length)) {
            bool selfClosing = false;
            char* tagName = pos + 1;
            pos = openingTagEnd(pos + 1 + length, end, selfClosing);
            if (!selfClosing && ++depth > XmlClosingTags::kMinDepth)
                open.push_back(tagName);
        } else {
            ++pos;
        }
    }
    // Elements left open run to the end of the text, as this one does.
    for (char* tagName : open)
        learnt.Add(tagName, const_cast<char*>(end));
    return const_cast<char*>(end);
}

} // namespace UIKit::XmlScanner
