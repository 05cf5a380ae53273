#pragma once
#include "module/Export.h"
// A skinned label: it fits its text into its area with the description's
// font and alignment, draws it over the panel's background, and lets every
// mouse event through to its parent (so a label on a button is part of the
// button).
#include "controls/PanelCtrl.h"
#include "descriptors/FontDescriptor.h"
#include "descriptors/StaticTextCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API StaticTextCtrl : public PanelCtrl {
public:
    StaticTextCtrl(wxWindow* parent, int id, const wxRect& bounds);

    virtual bool HasTransparentBackground() const { return true; }
    virtual void OnLeftDown(wxMouseEvent& event);
    virtual void OnLeftUp(wxMouseEvent& event);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void SetControlLabel(const TString<wchar_t>& text) override;
    void OnEnterWindow(wxMouseEvent& event) override;
    void OnLeaveWindow(wxMouseEvent& event) override;
    void DrawCustom(wxDC& dc) override;
    bool AcceptsFocus() const override { return false; }

    // Changes the weight of the description's (shared) font and fits the
    // shown text again.
    void SetWeight(FontDescriptor::FontWeight weight);

    const wxRect& GetLabelArea() const { return m_labelArea; }

private:
    void passToParent(wxEvent& event);

    Toolkit::smart_ptr<StaticTextCtrlDescriptor> m_text;
    TString<wchar_t> m_rawText;
    wxRect m_labelArea;
    int m_alignment = wxALIGN_CENTER;
    // -1 until SetWeight is first called, so that any first weight applies.
    int m_weight = -1;

    void onLeftDown(wxMouseEvent& e) { OnLeftDown(e); }
    void onLeftUp(wxMouseEvent& e) { OnLeftUp(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
