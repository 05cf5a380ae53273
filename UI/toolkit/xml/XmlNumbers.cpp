#include "xml/XmlNumbers.h"

#include <cstring>
#include <locale>
#include <sstream>
#include <string>

namespace UIKit::XmlNumbers {

int ParseInt(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    // The classic locale, so that a locale set by the GUI cannot change what
    // a skin number means.
    stream.imbue(std::locale::classic());
    int value = 0;
    stream >> value;
    return value;
}

size_t ParseList(const char* text, int* values, size_t capacity)
{
    static constexpr const char* kSeparators = ",;";
    size_t count = 0;
    for (const char* p = text + std::strspn(text, kSeparators); *p; p += std::strspn(p, kSeparators)) {
        const size_t length = std::strcspn(p, kSeparators);
        if (count < capacity)
            values[count] = ParseInt(std::string_view(p, length));
        ++count;
        p += length;
    }
    return count;
}

} // namespace UIKit::XmlNumbers
