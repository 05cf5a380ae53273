#include "controls/IBackgroundSource.h"

#include <wx/dcmemory.h>

namespace UIKit {

void IBackgroundSource::Blit(wxDC& dc, const wxBitmap& bitmap, const wxRect& area)
{
    if (!bitmap.IsOk())
        return;
    wxMemoryDC source;
    source.SelectObjectAsSource(bitmap);
    dc.Blit(0, 0, area.width, area.height, &source, area.x, area.y, wxCOPY, false);
}

} // namespace UIKit
