#pragma once
#include "module/Export.h"
// The plain skinned container: three background images (normal, disabled,
// selected), keyboard events turned into library events, and the shared
// hand and wait cursors. Buttons, lists and screens derive from it.
#include "controls/SkinnedControl.h"
#include "controls/StateImages.h"
#include "descriptors/PanelCtrlDescriptor.h"

#include <functional>

namespace UIKit {

class UIKIT_API PanelCtrl : public SkinnedControl {
public:
    static const wxEventType EVT_KEYPRESSED_ENTER;
    static const wxEventType EVT_KEYDOWN;
    static const wxEventType EVT_KEYUP;
    static const wxEventType EVT_KEYPRESSED_TAB;
    static const wxEventType EVT_KEYPRESSED_ESC;
    static const wxEventType EVT_SHORTKEY_HELP;

    // Modifier bits carried in the extra long of key events.
    enum Modifier { ModAlt = 1, ModCtrl = 2, ModShift = 4, ModMeta = 8 };

    // Answers whether a combined key code (key + 308 with Ctrl + 306 with
    // Shift) is the help hot key. Until the hot-key table is installed the
    // answer is no.
    using HelpHotkeyTest = std::function<bool(int code)>;
    static void SetHelpHotkeyTest(HelpHotkeyTest test);

    PanelCtrl(wxWindow* parent, int id, const wxRect& bounds, long style = wxBORDER_NONE);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void DrawCustom(wxDC& dc) override;
    void OnSize(wxSizeEvent& event) override;
    virtual void OnMouseWheel(wxMouseEvent& event);
    virtual void OnKeyDown(wxKeyEvent& event);
    virtual void OnKeyUp(wxKeyEvent& event);

    void SetHandCursor();
    void SetWaitCursor();
    void RestorePreviousCursor();

    const StateImages& GetStateImages() const { return m_images; }

protected:
    // Asks the resources for the state images at `size`: the normal,
    // disabled and selected images of a panel.
    virtual void loadImages(const wxSize& size);
    // One descriptor image rendered at `size`, or null.
    Toolkit::smart_ptr<ImageCtrl> imageAt(const ImagePtr& image, const wxSize& size) const;
    // The image for the control's state; buttons add the pressed state.
    virtual ImageCtrl* currentImage() const;
    void postCommand(wxEventType type, int id, int integer = 0, long extra = 0);

    Toolkit::smart_ptr<PanelCtrlDescriptor> m_panel;
    StateImages m_images;
    bool m_controlHeld = false;
    bool m_shiftHeld = false;

private:
    void onWheel(wxMouseEvent& e) { OnMouseWheel(e); }
    void onKeyDown(wxKeyEvent& e) { OnKeyDown(e); }
    void onKeyUp(wxKeyEvent& e) { OnKeyUp(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
