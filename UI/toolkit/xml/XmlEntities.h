#pragma once
#include "module/Export.h"
// The five predefined entities and their decoding. The tables are searched
// in their order, so "&lt;" is tried before "&amp;".
#include <cstddef>
#include <cstdint>
#include <string>

namespace UIKit {

constexpr int XML_ENTITY_COUNT = 5;
extern const char* const CODES[XML_ENTITY_COUNT];
extern const uint32_t CODE_LEN[XML_ENTITY_COUNT];
extern const char* const CHARS[XML_ENTITY_COUNT];
extern const uint32_t CHAR_LEN[XML_ENTITY_COUNT];

constexpr const char CDATA_IN[] = "<![CDATA[";
constexpr uint32_t CDATA_IN_LEN = 9;
constexpr const char CDATA_OUT[] = "]]>";
constexpr uint32_t CDATA_OUT_LEN = 3;

// Decodes the entities of `length` bytes of `in` into `out` in one left to
// right pass and returns the number of bytes written. Any other "&",
// numeric references included, is copied unchanged. The output is never
// longer than the input, so `out` may equal `in` (decoding in place). No
// NUL is written.
UIKIT_API uint32_t tag_code_to_tag(char* out, const char* in, uint32_t length);

// The reverse: appends `length` bytes of `in` to `out` with each of the five
// characters written as its entity, so that decoding gives `in` back.
UIKIT_API void tag_to_tag_code(std::string& out, const char* in, uint32_t length);

} // namespace UIKit
