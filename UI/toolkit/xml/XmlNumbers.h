#pragma once
#include "module/Export.h"
// Numbers in skin values: one decimal integer, or a list of them separated
// by "," or ";" (a run of separators counts as one), as in bounds="0,0,80,24".
#include <cstddef>
#include <string_view>

namespace UIKit::XmlNumbers {

// The integer at the start of the text as a standard input stream reads it
// (leading white space skipped, stops at the first byte that cannot belong
// to the number); 0 when there is none.
UIKIT_API int ParseInt(std::string_view text);

// Reads up to `capacity` list items into `values` and returns how many
// items the list has (possibly more than were stored). Items that are not
// numbers read as 0.
UIKIT_API size_t ParseList(const char* text, int* values, size_t capacity);

} // namespace UIKit::XmlNumbers
