#pragma once
#include "module/Export.h"
// A list: a panel with an optional border and alternating row colours.
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API ListCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit ListCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    bool HasBorder() const { return m_border; }
    const wxColour& GetOddRowColour() const { return m_oddRowColour; }
    const wxColour& GetEvenRowColour() const { return m_evenRowColour; }

private:
    bool m_border = false;
    wxColour m_oddRowColour;
    wxColour m_evenRowColour;
};

} // namespace UIKit
