#pragma once
#include "module/Export.h"
// Where a thing sits inside a box: nine bit flags, written in skins by name.
#include "Toolkit/TString.h"

namespace UIKit::Drawing {

enum ContentAlignment : int {
    TopLeft = 1,
    TopCenter = 2,
    TopRight = 4,
    MiddleLeft = 16,
    MiddleCenter = 32,
    MiddleRight = 64,
    BottomLeft = 256,
    BottomCenter = 512,
    BottomRight = 1024,
};

// The alignment named by one of the nine names (exact case). An empty text
// gives `fallbackForEmpty`; any other text gives MiddleLeft.
UIKIT_API ContentAlignment ParseContentAlignment(const TString<wchar_t>& text, ContentAlignment fallbackForEmpty);

} // namespace UIKit::Drawing
