#include "controls/FrameStrip.h"

#include <wx/dcmemory.h>

#include <algorithm>

namespace UIKit {

void FrameStrip::Load(const Toolkit::smart_ptr<ImageDescriptor>& image, unsigned int frameCount)
{
    m_bitmap = image && image->IsOk() ? wxBitmap(image->GetImage()) : wxBitmap();
    m_frameCount = frameCount;
}

void FrameStrip::Draw(wxDC& dc, const wxSize& size, unsigned int frame) const
{
    if (GetFrameCount() == 0 || size.x <= 0 || size.y <= 0)
        return;
    frame = std::min(frame, m_frameCount - 1);
    const int x = size.x * int(frame);
    // Frames sit side by side; a strip shorter than the window gives what it has.
    const int width = std::min(size.x, m_bitmap.GetWidth() - x);
    const int height = std::min(size.y, m_bitmap.GetHeight());
    if (width <= 0 || height <= 0)
        return;
    wxMemoryDC source;
    source.SelectObjectAsSource(m_bitmap);
    dc.Blit(0, 0, width, height, &source, x, 0, wxCOPY, true);
}

} // namespace UIKit
