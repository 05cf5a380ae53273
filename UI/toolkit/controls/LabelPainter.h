#pragma once
#include "module/Export.h"
// How buttons and static texts place and draw their label: inside the
// control's padding (or two pixels in from its edges without one), in the
// description's font and colour for the enabled state.
#include "Toolkit/TString.h"

#include <wx/dc.h>
#include <wx/gdicmn.h>

namespace UIKit {

class BaseCtrlDescriptor;
class FontDescriptor;

class UIKIT_API LabelPainter {
public:
    // The rectangle of a control of that size the label is fitted into.
    static wxRect Area(const wxSize& size, const BaseCtrlDescriptor* descriptor);
    // Draws the (already fitted) text with wx alignment flags; the font may
    // be null, leaving the dc's.
    static void Draw(wxDC& dc, const TString<wchar_t>& text, const wxRect& area, int placement,
                     const FontDescriptor* font, bool enabled);
};

} // namespace UIKit
