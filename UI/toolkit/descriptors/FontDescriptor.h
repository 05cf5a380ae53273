#pragma once
#include "module/Export.h"
// A font with its normal and disabled text colours, read from the "Font"
// child of a control element.
#include "Toolkit/smart_ptr.h"

#include <wx/colour.h>
#include <wx/font.h>

namespace UIKit {

class XMLNode;

class UIKIT_API FontDescriptor {
public:
    enum FontWeight { Light, Normal, Bold };

    explicit FontDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const wxFont& GetFont() const { return m_font; }
    const wxColour& GetForeColour() const { return m_fore; }
    const wxColour& GetDisabledColour() const { return m_disabled; }
    FontWeight GetWeight() const { return m_weight; }
    // Labels may embolden their text at run time; every control sharing
    // this description sees the change.
    void SetWeight(FontWeight weight);

private:
    wxColour m_fore;
    wxColour m_disabled;
    wxFont m_font;
    FontWeight m_weight = Normal;
};

} // namespace UIKit
