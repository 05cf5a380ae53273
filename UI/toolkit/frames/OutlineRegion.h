#pragma once
#include "module/Export.h"
// The outline of a skinned window, read from its background: magenta
// (255, 0, 255) and pixels with alpha below 128 lie outside.
#include <wx/image.h>
#include <wx/region.h>

namespace UIKit {

// Rows with the same runs of inside pixels merge into one band, so a
// rounded rectangle costs a few dozen rectangles, not one per row.
UIKIT_API wxRegion OutlineRegion(const wxImage& image);

} // namespace UIKit
