#pragma once
#include "module/Export.h"
// A panel with a label: its text (a string-table key resolved on reading),
// where it sits in the box, and its font.
#include "descriptors/FontDescriptor.h"
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API StaticTextCtrlDescriptor : public PanelCtrlDescriptor {
public:
    explicit StaticTextCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    explicit StaticTextCtrlDescriptor(const Toolkit::smart_ptr<StaticTextCtrlDescriptor>& other);

    const TString<wchar_t>& GetLabel() const { return m_label; }
    // wx alignment flags (wxALIGN_...).
    int GetPlacement() const { return m_placement; }
    const Toolkit::smart_ptr<FontDescriptor>& GetFont() const { return m_font; }

    // The alignment flags of a placement word; unknown words give `fallback`.
    static int ParsePlacement(const TString<wchar_t>& word, int fallback);

protected:
    StaticTextCtrlDescriptor(const StaticTextCtrlDescriptor&) = default;

private:
    TString<wchar_t> m_label;
    int m_placement;
    Toolkit::smart_ptr<FontDescriptor> m_font;
};

} // namespace UIKit
