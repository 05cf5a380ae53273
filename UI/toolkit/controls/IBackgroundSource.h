#pragma once
#include "module/Export.h"
// A window that skinned controls placed in it copy their background from:
// skinned controls themselves (their cached rendering) and skinned frames
// (their background image). Partly transparent controls then look as if
// drawn over their parent without the parent painting under them.
#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>

namespace UIKit {

class UIKIT_API IBackgroundSource {
public:
    virtual ~IBackgroundSource() = default;
    // Draws into `dc` at (0, 0) the part `area` (this window's coordinates)
    // of its rendering.
    virtual void DrawBitmap(wxDC& dc, const wxRect& area) = 0;

    // The copy every source makes: `area` of the bitmap to (0, 0) of `dc`,
    // nothing for an invalid bitmap.
    static void Blit(wxDC& dc, const wxBitmap& bitmap, const wxRect& area);
};

} // namespace UIKit
