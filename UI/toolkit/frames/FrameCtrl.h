#pragma once
#include "module/Export.h"
// A skinned frame built from a frame description: its background image is
// also its shape, its children come from the factory, and skinned controls
// placed directly in it copy their background from it.
#include "controls/IBackgroundSource.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "frames/wxSkinFrameBase.h"

namespace UIKit {

class CtrlFactory;
class ImageCtrl;

class UIKIT_API FrameCtrl : public wxSkinFrameBase, public IBackgroundSource {
public:
    FrameCtrl(wxWindow* parent, const TString<wchar_t>& title, int id, const wxRect& bounds, long style);

    // Takes background, shape, size limits and the children from the
    // description; the children are built by the process's factory, or by
    // the one given.
    virtual bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor);
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, const CtrlFactory* factory);
    // Draws what derived frames add over the background.
    virtual void DrawCustom(wxDC&) {}
    virtual void OnPaint(wxPaintEvent& event);
    virtual void OnEraseBackground(wxEraseEvent&) {}
    virtual void OnSize(wxSizeEvent& event);

    // Renders the background at the current client size and cuts the
    // outline from it; either is skipped when already done at that size.
    bool CreateShape();
    // Draws into `dc` at (0, 0) the part `area` of the background.
    void DrawBitmap(wxDC& dc, const wxRect& area) override;
    bool Show(bool show = true) override;

    // The application-wide wait cursor; only the main thread may change it.
    static void SetWaitCursor();
    static void RestorePreviousCursor();

    const Toolkit::smart_ptr<BaseCtrlDescriptor>& GetDescriptor() const { return m_descriptor; }
    const Toolkit::smart_ptr<ImageCtrl>& GetBackground() const { return m_background; }

private:
    void OnWindowCreate(wxWindowCreateEvent& event);
    void cutShape();

    Toolkit::smart_ptr<ImageCtrl> m_background;
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_descriptor;
    // The background size the outline was last cut at: cutting is slow (a
    // region built row by row), and a start asks for it several times.
    wxSize m_shapeSize;

    void onPaint(wxPaintEvent& e) { OnPaint(e); }
    void onErase(wxEraseEvent& e) { OnEraseBackground(e); }
    void onSize(wxSizeEvent& e) { OnSize(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
