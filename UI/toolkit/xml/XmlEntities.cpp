#include "xml/XmlEntities.h"

#include <cstring>

namespace UIKit {

const char* const CODES[XML_ENTITY_COUNT] = {"&lt;", "&amp;", "&gt;", "&apos;", "&quot;"};
const uint32_t CODE_LEN[XML_ENTITY_COUNT] = {4, 5, 4, 6, 6};
const char* const CHARS[XML_ENTITY_COUNT] = {"<", "&", ">", "'", "\""};
const uint32_t CHAR_LEN[XML_ENTITY_COUNT] = {1, 1, 1, 1, 1};

namespace {

// The table row of the entity that starts at `at`, or -1.
int entityAt(const char* at, const char* end)
{
    const auto available = static_cast<size_t>(end - at);
    for (int i = 0; i < XML_ENTITY_COUNT; ++i)
        if (CODE_LEN[i] <= available && std::memcmp(at, CODES[i], CODE_LEN[i]) == 0)
            return i;
    return -1;
}

} // namespace

uint32_t tag_code_to_tag(char* out, const char* in, uint32_t length)
{
    const char* end = in + length;
    const char* amp = static_cast<const char*>(std::memchr(in, '&', length));
    if (!amp) {
        if (out != in)
            std::memmove(out, in, length);
        return length;
    }
    char* write = out;
    const char* read = in;
    while (amp) {
        // Copy the plain run before the "&" (memmove: the ranges may overlap).
        const auto run = static_cast<size_t>(amp - read);
        if (write != read)
            std::memmove(write, read, run);
        write += run;
        const int entity = entityAt(amp, end);
        if (entity >= 0) {
            std::memcpy(write, CHARS[entity], CHAR_LEN[entity]);
            write += CHAR_LEN[entity];
            read = amp + CODE_LEN[entity];
        } else {
            *write++ = '&';
            read = amp + 1;
        }
        amp = static_cast<const char*>(std::memchr(read, '&', static_cast<size_t>(end - read)));
    }
    const auto rest = static_cast<size_t>(end - read);
    if (write != read)
        std::memmove(write, read, rest);
    write += rest;
    return static_cast<uint32_t>(write - out);
}

void tag_to_tag_code(std::string& out, const char* in, uint32_t length)
{
    const char* end = in + length;
    const char* run = in;
    for (const char* p = in; p < end; ++p) {
        const char* entity = nullptr;
        for (int i = 0; i < XML_ENTITY_COUNT && !entity; ++i)
            if (*p == CHARS[i][0])
                entity = CODES[i];
        if (!entity)
            continue;
        out.append(run, p).append(entity);
        run = p + 1;
    }
    out.append(run, end);
}

} // namespace UIKit
