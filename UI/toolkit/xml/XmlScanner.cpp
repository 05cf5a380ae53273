#include "xml/XmlScanner.h"

#include "xml/XmlClosingTags.h"
#include "xml/XmlEntities.h"

#if defined(__x86_64__)
#include <immintrin.h>
#elif defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace UIKit::XmlScanner {
namespace {

inline char lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether [pos, end) holds an odd number of `c` bytes.
bool oddCount(const char* pos, const char* end, char c)
{
    unsigned odd = 0;
#ifdef __SSE2__
    const __m128i wanted = _mm_set1_epi8(c);
    for (; end - pos >= 16; pos += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos));
        odd ^= static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    }
    odd = static_cast<unsigned>(__builtin_parity(odd));
#endif
    for (; pos < end; ++pos)
        odd ^= *pos == c;
    return odd != 0;
}

// After the name of an opening tag: whether the tag closes itself, and the
// position after its ">". Quoted values are stepped over, as the attribute
// reader does; "/" outside a value ends the tag as an empty element.
const char* openingTagEndSlow(const char* pos, const char* end, bool& selfClosing)
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

// The same, quicker for the usual tag: when no value holds a ">" or a "/",
// the first ">" ends the tag and a "/" can only stand just before it.
const char* openingTagEnd(const char* pos, const char* end, bool& selfClosing)
{
    const char* close = Find(pos, end, '>');
    if (close == end || oddCount(pos, close, '"'))
        return openingTagEndSlow(pos, end, selfClosing);
    const char* last = close;
    while (last > pos && IsBlank(last[-1]))
        --last;
    const char* slash = Find(pos, close, '/');
    if (slash != close && slash != last - 1)
        return openingTagEndSlow(pos, end, selfClosing);
    selfClosing = slash != close;
    return close + 1;
}

#ifdef __x86_64__
// Skips whole blocks without a candidate; returns the candidate or the
// position where fewer than a block and two bytes remain. Two copies of one
// loop: 16-byte blocks on every x86-64, 32-byte blocks where AVX2 exists.
const char* skipBlocksSse2(const char* pos, const char* end, char folded)
{
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
        if (const int mask = _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, lt), wanted)))
            return pos + __builtin_ctz(static_cast<unsigned>(mask));
    }
    return pos;
}

[[gnu::target("avx2")]] const char* skipBlocksAvx2(const char* pos, const char* end, char folded)
{
    const __m256i lt = _mm256_set1_epi8('<');
    const __m256i slash = _mm256_set1_epi8('/');
    const __m256i bang = _mm256_set1_epi8('!');
    const __m256i caseBit = _mm256_set1_epi8(0x20);
    const __m256i letter = _mm256_set1_epi8(folded);
    for (; end - pos >= 34; pos += 32) {
        const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos));
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos + 1));
        const __m256i c = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos + 2));
        const __m256i opening = _mm256_cmpeq_epi8(_mm256_or_si256(b, caseBit), letter);
        const __m256i closing =
            _mm256_and_si256(_mm256_cmpeq_epi8(b, slash), _mm256_cmpeq_epi8(_mm256_or_si256(c, caseBit), letter));
        const __m256i wanted = _mm256_or_si256(_mm256_or_si256(opening, closing), _mm256_cmpeq_epi8(b, bang));
        if (const int mask = _mm256_movemask_epi8(_mm256_and_si256(_mm256_cmpeq_epi8(a, lt), wanted)))
            return pos + __builtin_ctz(static_cast<unsigned>(mask));
    }
    return skipBlocksSse2(pos, end, folded);
}

const bool s_hasAvx2 = __builtin_cpu_supports("avx2");
#endif

bool isCandidate(const char* pos, const char* end, char folded)
{
    if (*pos != '<' || pos + 1 >= end)
        return false;
    const char next = pos[1];
    return next == '!' || (next | 0x20) == folded || (next == '/' && pos + 2 < end && (pos[2] | 0x20) == folded);
}

const char* nextCandidate(const char* pos, const char* end, char first)
{
    const char folded = static_cast<char>(first | 0x20); // letters of either case match
#ifdef __x86_64__
    pos = s_hasAvx2 ? skipBlocksAvx2(pos, end, folded) : skipBlocksSse2(pos, end, folded);
#endif
    for (; pos < end; ++pos)
        if (isCandidate(pos, end, folded))
            return pos;
    return end;
}

} // namespace

const char* FindText(const char* pos, const char* end, const char* text)
{
    const size_t length = std::strlen(text);
    while (pos < end) {
        pos = Find(pos, end, text[0]);
        if (static_cast<size_t>(end - pos) < length)
            return end;
        if (std::memcmp(pos, text, length) == 0)
            return pos;
        ++pos;
    }
    return end;
}

const char* SkipComment(const char* pos, const char* end)
{
    const char* close = FindText(pos + 4, end, "-->");
    return close == end ? close : close + 3;
}

const char* AfterTagEnd(const char* pos, const char* end)
{
    const char* close = Find(pos, end, '>');
    return close == end ? close : close + 1;
}

const char* FindClosingTag(const char* pos, const char* end, const char* name, size_t length,
                           XmlClosingTags& learnt)
{
    const char first = lower(name[0]);
    auto& open = learnt.Open();
    open.clear();
    size_t depth = 1;
    for (pos = nextCandidate(pos, end, first); pos < end; pos = nextCandidate(pos, end, first)) {
        const char next = At(pos, end, 1);
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
            const char* tagName = pos + 1;
            pos = openingTagEnd(pos + 1 + length, end, selfClosing);
            if (!selfClosing && ++depth > XmlClosingTags::kMinDepth)
                open.push_back(tagName);
        } else {
            ++pos;
        }
    }
    // Elements left open run to the end of the text, as this one does.
    for (const char* tagName : open)
        learnt.Add(tagName, end);
    return end;
}

} // namespace UIKit::XmlScanner
