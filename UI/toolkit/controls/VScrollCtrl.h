#pragma once
#include "module/Export.h"
// The skinned vertical scroll control a list holds: a panel whose children
// are the bar (named "VScrollBar") and, usually, up and down buttons. The
// buttons and the mouse wheel move the bar one step; sizing stretches the
// bar between the buttons.
#include "controls/PanelCtrl.h"

namespace UIKit {

class VScrollBar;

class UIKIT_API VScrollCtrl : public PanelCtrl {
public:
    VScrollCtrl(wxWindow* parent, int id, const wxRect& bounds);

    virtual void OnUp(wxCommandEvent& event);
    virtual void OnDown(wxCommandEvent& event);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void OnMouseWheel(wxMouseEvent& event) override;
    void OnSize(wxSizeEvent& event) override;

    // The child bar, or null when the skin gives none. The factory adds
    // children after loading, so the bar is looked up until found.
    VScrollBar* GetScrollBar();

private:
    VScrollBar* m_scrollBar = nullptr;

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
