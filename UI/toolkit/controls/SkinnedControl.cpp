#include "controls/SkinnedControl.h"

#include "util/Util.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>

namespace UIKit {

wxBEGIN_EVENT_TABLE(SkinnedControl, Control)
    EVT_PAINT(SkinnedControl::onPaint)
    EVT_ERASE_BACKGROUND(SkinnedControl::onErase)
wxEND_EVENT_TABLE()

SkinnedControl::SkinnedControl(wxWindow* parent, int id, const wxRect& bounds, long style)
    : Control(parent, id, bounds, style)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
}

void SkinnedControl::RefreshUpdate(bool invalidate)
{
    if (invalidate)
        InvalidateCustomBitmapRecusive();
    Refresh(true);
}

void SkinnedControl::InvalidateCustomBitmapRecusive()
{
    m_customBitmapValid = false;
    for (wxWindow* child : GetChildren())
        if (auto* skinned = dynamic_cast<SkinnedControl*>(child))
            skinned->InvalidateCustomBitmapRecusive();
}

void SkinnedControl::CreateCustomBitmap()
{
    const wxSize size = GetClientSize();
    if (size.x <= 0 || size.y <= 0)
        return;
    if (!m_customBitmap.IsOk() || m_customBitmap.GetSize() != size)
        m_customBitmap = wxBitmap(size);
    wxMemoryDC dc(m_customBitmap);
    render(dc);
}

void SkinnedControl::OnPaint(wxPaintEvent&)
{
    // Buffered so the parent's background and the content appear together.
    wxAutoBufferedPaintDC dc(this);
    render(dc);
}

void SkinnedControl::render(wxDC& dc)
{
    const wxColour colour = m_backgroundColour;
    if (colour.IsOk() && colour.Alpha() == 255) {
        dc.SetBackground(wxBrush(colour));
        dc.Clear();
    } else {
        drawParentBackground(dc);
        if (colour.IsOk() && colour.Alpha() != 0) {
            wxColour overlay = colour;
            DrawCachedBackgroundColor(dc, overlay);
        }
    }
    DrawCustom(dc);
}

void SkinnedControl::drawParentBackground(wxDC& dc)
{
    wxWindow* parent = GetParent();
    if (!parent)
        return;
    if (auto* source = dynamic_cast<IBackgroundSource*>(parent))
        source->DrawBitmap(dc, wxRect(GetPosition(), GetSize()));
}

void SkinnedControl::DrawBitmap(wxDC& dc, const wxRect& area)
{
    if (!m_customBitmapValid) {
        CreateCustomBitmap();
        m_customBitmapValid = true;
    }
    Blit(dc, m_customBitmap, area);
}

void SkinnedControl::DrawCachedBackgroundColor(wxDC& dc, wxColour& colour)
{
    const wxSize size = GetSize();
    const bool reusable = m_colourBitmap.IsOk() && m_colourBitmapColour == colour &&
                          m_colourBitmap.GetSize() == size;
    if (!reusable) {
        Util::GetBitmapAlphaColor(m_colourBitmap, colour, size);
        m_colourBitmapColour = colour;
    }
    dc.DrawBitmap(m_colourBitmap, 0, 0, true);
}

} // namespace UIKit
