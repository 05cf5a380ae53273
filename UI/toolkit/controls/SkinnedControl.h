#pragma once
#include "module/Export.h"
// The drawing model of skinned controls: a control paints its background by
// copying the part of its parent's rendering under it, overlays its
// background colour, then draws its content. Each control caches its full
// rendering in a bitmap, which its children copy their background from.
#include "controls/Control.h"
#include "controls/IBackgroundSource.h"

#include <wx/bitmap.h>

namespace UIKit {

class UIKIT_API SkinnedControl : public Control, public IBackgroundSource {
public:
    SkinnedControl(wxWindow* parent, int id, const wxRect& bounds, long style);

    virtual void DrawCachedBackgroundColor(wxDC& dc, wxColour& colour);
    // Renders the control (background and content) into the cache bitmap.
    virtual void CreateCustomBitmap();
    // Marks this control's cache and those of all its descendants stale.
    virtual void InvalidateCustomBitmapRecusive();
    virtual void DrawCustom(wxDC& dc) = 0;
    virtual void OnPaint(wxPaintEvent& event);
    virtual void OnEraseBackground(wxEraseEvent&) {}

    void RefreshUpdate(bool invalidate) override;

    // Children call it for their background; renders the cache first when
    // it is stale.
    void DrawBitmap(wxDC& dc, const wxRect& area) override;

    bool IsCustomBitmapValid() const { return m_customBitmapValid; }

private:
    // The shared steps of painting, into a window or into the cache.
    void render(wxDC& dc);
    void drawParentBackground(wxDC& dc);

    wxBitmap m_customBitmap;
    bool m_customBitmapValid = false;
    wxBitmap m_colourBitmap;
    wxColour m_colourBitmapColour;

    void onPaint(wxPaintEvent& e) { OnPaint(e); }
    void onErase(wxEraseEvent& e) { OnEraseBackground(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
