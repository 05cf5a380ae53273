#include "descriptors/ContentAlignment.h"

#include <array>
#include <utility>

namespace UIKit::Drawing {

ContentAlignment ParseContentAlignment(const TString<wchar_t>& text, ContentAlignment fallbackForEmpty)
{
    static constexpr std::array<std::pair<const wchar_t*, ContentAlignment>, 9> names{{
        {L"TopLeft", TopLeft},
        {L"TopCenter", TopCenter},
        {L"TopRight", TopRight},
        {L"MiddleLeft", MiddleLeft},
        {L"MiddleCenter", MiddleCenter},
        {L"MiddleRight", MiddleRight},
        {L"BottomLeft", BottomLeft},
        {L"BottomCenter", BottomCenter},
        {L"BottomRight", BottomRight},
    }};
    if (text.empty())
        return fallbackForEmpty;
    for (const auto& [name, value] : names)
        if (text == name)
            return value;
    return MiddleLeft;
}

} // namespace UIKit::Drawing
