#include "appearance/StringTable.h"

#include "Toolkit/UTF8.h"

#include <array>
#include <cstring>
#include <random>

namespace UIKit {
namespace {

const TString<wchar_t>& emptyText()
{
    static const TString<wchar_t> empty;
    return empty;
}

// The 128-bit hash key, drawn once per process.
const std::array<uint64_t, 2>& hashKey()
{
    static const std::array<uint64_t, 2> key = [] {
        std::random_device random;
        const auto draw = [&random] { return uint64_t(random()) << 32 | random(); };
        return std::array<uint64_t, 2>{draw(), draw()};
    }();
    return key;
}

uint64_t rotl(uint64_t x, int b)
{
    return (x << b) | (x >> (64 - b));
}

// SipHash-1-3: one compression round per 8-byte word, three at the end.
class SipHash {
public:
    explicit SipHash(const std::array<uint64_t, 2>& k)
        : v0(k[0] ^ 0x736f6d6570736575ULL), v1(k[1] ^ 0x646f72616e646f6dULL), v2(k[0] ^ 0x6c7967656e657261ULL),
          v3(k[1] ^ 0x7465646279746573ULL)
    {
    }

    uint64_t Hash(const char* data, size_t size)
    {
        const size_t whole = size - size % 8;
        for (size_t at = 0; at < whole; at += 8) {
            uint64_t word;
            std::memcpy(&word, data + at, 8);
            add(word);
        }
        uint64_t last = uint64_t(size) << 56;
        for (size_t i = whole; i < size; ++i)
            last |= uint64_t(static_cast<unsigned char>(data[i])) << (8 * (i - whole));
        add(last);
        v2 ^= 0xff;
        round();
        round();
        round();
        return v0 ^ v1 ^ v2 ^ v3;
    }

private:
    void add(uint64_t word)
    {
        v3 ^= word;
        round();
        v0 ^= word;
    }
    void round()
    {
        v0 += v1; v1 = rotl(v1, 13); v1 ^= v0; v0 = rotl(v0, 32);
        v2 += v3; v3 = rotl(v3, 16); v3 ^= v2;
        v0 += v3; v3 = rotl(v3, 21); v3 ^= v0;
        v2 += v1; v1 = rotl(v1, 17); v1 ^= v2; v2 = rotl(v2, 32);
    }

    uint64_t v0, v1, v2, v3;
};

} // namespace

size_t StringTable::KeyHash::operator()(const TString<char>& key) const noexcept
{
    return size_t(SipHash(hashKey()).Hash(key.data(), key.size()));
}

const TString<wchar_t>& StringTable::MissingText()
{
    static const TString<wchar_t> missing(L"Missing Label key");
    return missing;
}

const TString<wchar_t>& StringTable::Get(const TString<char>& key) const
{
    if (key.empty())
        return emptyText();
    const auto found = m_strings.find(key);
    return found == m_strings.end() ? MissingText() : found->second;
}

bool StringTable::Contains(const TString<char>& key) const
{
    return !key.empty() && m_strings.find(key) != m_strings.end();
}

const TString<wchar_t>& StringTable::GetOrAdd(const TString<char>& key)
{
    if (key.empty())
        return emptyText();
    const auto found = m_strings.find(key);
    if (found != m_strings.end())
        return found->second;
    return m_strings.emplace(key, Toolkit::UTF8::ToUNICODE(key)).first->second;
}

void StringTable::Set(const TString<char>& key, const TString<wchar_t>& text)
{
    m_strings.insert_or_assign(key, text);
}

} // namespace UIKit
