#include "controls/LabelPainter.h"

#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/FontDescriptor.h"

namespace UIKit {

wxRect LabelPainter::Area(const wxSize& size, const BaseCtrlDescriptor* descriptor)
{
    if (!descriptor || !descriptor->HasPadding())
        return wxRect(2, 2, size.x - 4, size.y - 4);
    // Padding is given as left, top, right, bottom.
    const wxRect& padding = descriptor->GetPadding();
    return wxRect(padding.x, padding.y, size.x - padding.x - padding.width, size.y - padding.y - padding.height);
}

void LabelPainter::Draw(wxDC& dc, const TString<wchar_t>& text, const wxRect& area, int placement,
                        const FontDescriptor* font, bool enabled)
{
    if (text.empty())
        return;
    if (font) {
        const wxColour& colour = enabled ? font->GetForeColour() : font->GetDisabledColour();
        if (colour.IsOk())
            dc.SetTextForeground(colour);
        dc.SetFont(font->GetFont());
    }
    dc.DrawLabel(wxString(text), wxNullBitmap, area, placement, -1);
}

} // namespace UIKit
