#include "xml/XmlScanner.h"

#include "xml/XmlClosingTags.h"
#include "xml/XmlEntities.h"

#include <cstdint>

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

// What a candidate tag must start with: "<", then the first three bytes of
// the name (or "/" and its first two bytes for a closing tag), or "!". Bytes
// are compared with the case bit set on both sides, so letters of either
// case match; a name shorter than three bytes leaves the missing positions
// unchecked. Candidates are confirmed by the caller, so this only filters.
struct Prefix {
    char bytes[3];
    bool used[3];
};

Prefix prefixOf(const char* name, size_t length)
{
    Prefix prefix{};
    for (size_t i = 0; i < 3; ++i) {
        prefix.used[i] = i < length;
        prefix.bytes[i] = i < length || i == 0 ? static_cast<char>(name[i] | 0x20) : '\0';
    }
    return prefix;
}

// The last 32-byte block the AVX2 loop stopped in, with the positions of
// all its candidates: the next candidate in the same block is then read
// from the mask instead of comparing the block again.
struct Block {
    const char* start = nullptr;
    unsigned mask = 0;
};

#ifdef __x86_64__
// Skips whole blocks without a candidate; returns the candidate or the
// position where fewer than a block and four bytes remain. Blocks without
// a "<" are passed after one compare. Two copies of one loop: 16-byte
// blocks on every x86-64, 32-byte blocks where AVX2 exists.
// Which of the 16 (32) bytes at `at` equal `wanted` once the case bit is set.
inline __m128i is(const char* at, __m128i wanted)
{
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return _mm_cmpeq_epi8(_mm_or_si128(v, _mm_set1_epi8(0x20)), wanted);
}

[[gnu::target("avx2")]] inline __m256i is(const char* at, __m256i wanted)
{
    const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
    return _mm256_cmpeq_epi8(_mm256_or_si256(v, _mm256_set1_epi8(0x20)), wanted);
}

const char* skipBlocksSse2(const char* pos, const char* end, const Prefix& prefix)
{
    const __m128i lt = _mm_set1_epi8('<');
    const __m128i slash = _mm_set1_epi8('/');
    const __m128i bang = _mm_set1_epi8('!');
    const __m128i n0 = _mm_set1_epi8(prefix.bytes[0]);
    const __m128i n1 = _mm_set1_epi8(prefix.bytes[1]);
    const __m128i n2 = _mm_set1_epi8(prefix.bytes[2]);
    const __m128i any1 = _mm_set1_epi8(prefix.used[1] ? 0 : -1);
    const __m128i any2 = _mm_set1_epi8(prefix.used[2] ? 0 : -1);
    for (; end - pos >= 20; pos += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos));
        const __m128i open = _mm_cmpeq_epi8(a, lt);
        if (_mm_movemask_epi8(open) == 0)
            continue;
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pos + 1));
        const __m128i c0 = is(pos + 2, n0);
        const __m128i c1 = _mm_or_si128(is(pos + 3, n1), any1);
        const __m128i opening =
            _mm_and_si128(_mm_and_si128(is(pos + 1, n0), _mm_or_si128(is(pos + 2, n1), any1)),
                          _mm_or_si128(is(pos + 3, n2), any2));
        const __m128i closing = _mm_and_si128(_mm_cmpeq_epi8(b, slash), _mm_and_si128(c0, c1));
        const __m128i wanted = _mm_or_si128(_mm_or_si128(opening, closing), _mm_cmpeq_epi8(b, bang));
        if (const int mask = _mm_movemask_epi8(_mm_and_si128(open, wanted)))
            return pos + __builtin_ctz(static_cast<unsigned>(mask));
    }
    return pos;
}

[[gnu::target("avx2")]] const char* skipBlocksAvx2(const char* pos, const char* end, const Prefix& prefix,
                                                    Block& found)
{
    const __m256i lt = _mm256_set1_epi8('<');
    const __m256i slash = _mm256_set1_epi8('/');
    const __m256i bang = _mm256_set1_epi8('!');
    const __m256i n0 = _mm256_set1_epi8(prefix.bytes[0]);
    const __m256i n1 = _mm256_set1_epi8(prefix.bytes[1]);
    const __m256i n2 = _mm256_set1_epi8(prefix.bytes[2]);
    const __m256i any1 = _mm256_set1_epi8(prefix.used[1] ? 0 : -1);
    const __m256i any2 = _mm256_set1_epi8(prefix.used[2] ? 0 : -1);
    for (; end - pos >= 36; pos += 32) {
        const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos));
        const __m256i open = _mm256_cmpeq_epi8(a, lt);
        if (_mm256_movemask_epi8(open) == 0)
            continue;
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos + 1));
        const __m256i c0 = is(pos + 2, n0);
        const __m256i c1 = _mm256_or_si256(is(pos + 3, n1), any1);
        const __m256i opening =
            _mm256_and_si256(_mm256_and_si256(is(pos + 1, n0), _mm256_or_si256(is(pos + 2, n1), any1)),
                             _mm256_or_si256(is(pos + 3, n2), any2));
        const __m256i closing = _mm256_and_si256(_mm256_cmpeq_epi8(b, slash), _mm256_and_si256(c0, c1));
        const __m256i wanted = _mm256_or_si256(_mm256_or_si256(opening, closing), _mm256_cmpeq_epi8(b, bang));
        if (const int mask = _mm256_movemask_epi8(_mm256_and_si256(open, wanted))) {
            found = {pos, static_cast<unsigned>(mask)};
            return pos + __builtin_ctz(found.mask);
        }
    }
    return skipBlocksSse2(pos, end, prefix);
}

const bool s_hasAvx2 = __builtin_cpu_supports("avx2");
#endif

#ifdef __x86_64__
// openingTagEnd in one pass over 32-byte blocks: the first ">", the parity
// of the quotes before it and the first "/" before it come out of the same
// compares. Null when the tag needs the careful reading (a quote left open
// or a "/" elsewhere than just before the ">") or when the text ends first.
[[gnu::target("avx2")]] const char* openingTagEndAvx2(const char* pos, const char* end, bool& selfClosing)
{
    const char* start = pos;
    const char* slash = nullptr;
    unsigned quotes = 0;
    const __m256i gt = _mm256_set1_epi8('>');
    const __m256i quote = _mm256_set1_epi8('"');
    const __m256i slashes = _mm256_set1_epi8('/');
    for (; end - pos >= 32; pos += 32) {
        const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pos));
        const auto closeMask = static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(v, gt)));
        // Bits of the bytes before the first ">" (all of them when none).
        const unsigned before = closeMask ? (closeMask & (0u - closeMask)) - 1 : ~0u;
        const auto quoteMask = static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(v, quote)));
        const auto slashMask = static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(v, slashes))) & before;
        quotes += static_cast<unsigned>(__builtin_popcount(quoteMask & before));
        if (slashMask && !slash)
            slash = pos + __builtin_ctz(slashMask);
        if (closeMask == 0)
            continue;
        const char* close = pos + __builtin_ctz(closeMask);
        if (quotes & 1)
            return nullptr;
        const char* last = close;
        while (last > start && IsBlank(last[-1]))
            --last;
        if (slash && slash != last - 1)
            return nullptr;
        selfClosing = slash != nullptr;
        return close + 1;
    }
    return nullptr;
}
#endif

// After the name of an opening tag: whether the tag closes itself, and the
// position after its ">".
const char* tagEnd(const char* pos, const char* end, bool& selfClosing)
{
#ifdef __x86_64__
    if (s_hasAvx2)
        if (const char* after = openingTagEndAvx2(pos, end, selfClosing))
            return after;
#endif
    return openingTagEnd(pos, end, selfClosing);
}

bool isCandidate(const char* pos, const char* end, char folded)
{
    if (*pos != '<' || pos + 1 >= end)
        return false;
    const char next = pos[1];
    return next == '!' || (next | 0x20) == folded || (next == '/' && pos + 2 < end && (pos[2] | 0x20) == folded);
}

const char* nextCandidate(const char* pos, const char* end, const Prefix& prefix, [[maybe_unused]] Block& block)
{
#ifdef __x86_64__
    if (s_hasAvx2) {
        if (pos >= block.start && pos < block.start + 32) {
            const unsigned rest = block.mask & (~0u << (pos - block.start));
            if (rest)
                return block.start + __builtin_ctz(rest);
            pos = block.start + 32;
        }
        pos = skipBlocksAvx2(pos, end, prefix, block);
    } else {
        pos = skipBlocksSse2(pos, end, prefix);
    }
#endif
    for (; pos < end; ++pos)
        if (isCandidate(pos, end, prefix.bytes[0]))
            return pos;
    return end;
}

// NameAt for one name, quicker when the name is written as given: a name of
// up to eight bytes is compared with one 8-byte load, and only a mismatch
// is read again byte by byte with the case ignored.
class NameMatcher {
public:
    NameMatcher(const char* name, size_t length) : m_name(name), m_length(length)
    {
        if (length > 0 && length <= 8) {
            std::memcpy(&m_word, name, length);
            m_mask = length == 8 ? ~uint64_t{0} : (uint64_t{1} << (8 * length)) - 1;
        }
    }

    bool At(const char* pos, const char* end) const
    {
        if (m_mask && end - pos > 8) {
            uint64_t word;
            std::memcpy(&word, pos, sizeof word);
            if (((word ^ m_word) & m_mask) == 0)
                return EndsName(pos[m_length]);
        }
        return NameAt(pos, end, m_name, m_length);
    }

private:
    const char* m_name;
    size_t m_length;
    uint64_t m_word = 0;
    uint64_t m_mask = 0;
};

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
    const Prefix prefix = prefixOf(name, length);
    Block block;
    const NameMatcher named(name, length);
    for (pos = nextCandidate(pos, end, prefix, block); pos < end; pos = nextCandidate(pos, end, prefix, block)) {
        const char next = At(pos, end, 1);
        if (next == '/') {
            if (named.At(pos + 2, end)) {
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
        } else if (lower(next) == first && length > 0 && named.At(pos + 1, end)) {
            bool selfClosing = false;
            const char* tagName = pos + 1;
            pos = tagEnd(pos + 1 + length, end, selfClosing);
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
