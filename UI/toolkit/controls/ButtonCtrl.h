#pragma once
#include "module/Export.h"
// The skinned push button: one image per state (normal, disabled, selected,
// pointer over, pressed), a fitted label in the description's font, a tool
// tip, and a click event on release over the button, at most once every
// 500 ms counted from the end of the previous click's handling. A button
// holding the keyboard focus shows its pointer-over image.
#include "controls/PanelCtrl.h"
#include "descriptors/ButtonCtrlDescriptor.h"

#include <cstdint>

namespace UIKit {

class UIKIT_API ButtonCtrl : public PanelCtrl {
public:
    static constexpr uint32_t c_clickIntervalMs = 500;

    ButtonCtrl(wxWindow* parent, int id, const wxRect& bounds);

    virtual void OnLeftDown(wxMouseEvent& event);
    virtual void OnLeftUp(wxMouseEvent& event);
    // Emits the click at once (keyboard activation): no interval, no state.
    virtual void OnApplyControl(wxCommandEvent& event);

    bool Enable(bool enable = true) override;
    // Reached by Tab, not by the mouse; a spacer is never reached.
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override;
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    // Fits the text into the label area and redraws.
    void SetControlLabel(const TString<wchar_t>& text) override;
    void DrawCustom(wxDC& dc) override;

    const wxRect& GetLabelArea() const { return m_labelArea; }
    bool IsPressed() const { return m_pressed; }

protected:
    // The enabled image as the normal one, plus the over and pressed images.
    void loadImages(const wxSize& size) override;
    ImageCtrl* currentImage() const override;

private:
    void emitClick();
    void updateCursor(bool enabled);

    // Null for a button described without a label (a plain panel class).
    Toolkit::smart_ptr<StaticTextCtrlDescriptor> m_text;
    Toolkit::smart_ptr<ButtonCtrlDescriptor> m_button;
    wxRect m_labelArea;
    bool m_pressed = false;
    uint32_t m_lastClickTime = 0;

    void onLeftDown(wxMouseEvent& e) { OnLeftDown(e); }
    void onLeftUp(wxMouseEvent& e) { OnLeftUp(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
