#pragma once
#include "module/Export.h"
// A horizontal strip of equally wide frames, drawn one frame at a time.
// Shared by the animation and the frame-mode progress bar.
#include "Toolkit/smart_ptr.h"
#include "descriptors/ImageDescriptor.h"

#include <wx/bitmap.h>
#include <wx/dc.h>

namespace UIKit {

class UIKIT_API FrameStrip {
public:
    // Takes the strip's pixels once; a missing image leaves the strip empty.
    void Load(const Toolkit::smart_ptr<ImageDescriptor>& image, unsigned int frameCount);
    // Draws frame `frame` (clamped to the last) sized `size` at (0, 0);
    // nothing for an empty strip.
    void Draw(wxDC& dc, const wxSize& size, unsigned int frame) const;

    unsigned int GetFrameCount() const { return m_bitmap.IsOk() ? m_frameCount : 0; }

private:
    wxBitmap m_bitmap;
    unsigned int m_frameCount = 0;
};

} // namespace UIKit
