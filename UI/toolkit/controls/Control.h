#pragma once
#include "module/Export.h"
// The base of every skinned window: it ties the window to the descriptor it
// was built from and to the pack it reads images from, and keeps the small
// interaction state all controls redraw from (loaded, pointer inside,
// selected, focused, label, background colour). The factory builds its
// children after loading it.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/BaseCtrlDescriptor.h"

#include <wx/window.h>

namespace UIKit {

class IDelegate;
class IDataSource;
class IResourceProvider;

class UIKIT_API Control : public wxWindow {
public:
    Control(wxWindow* parent, int id, const wxRect& bounds, long style);
    ~Control() override = default;

    virtual bool IsLoaded() const { return m_loaded; }
    virtual bool IsInside() const { return m_inside; }
    virtual bool IsSelected() const { return m_selected; }
    // Whether the pointer is over any descendant control.
    virtual bool IsChildrenInside();
    virtual bool HasFocus() const { return m_focused; }
    virtual Drawing::ContentAlignment PositionToParent() const;
    virtual const TString<wchar_t>& GetControlLabel() const { return m_label; }
    virtual void SetDelegate(IDelegate*) {}
    virtual void SetDataSource(IDataSource*) {}
    // Keeps the descriptor and takes name, colour and enabled state from it.
    // Overrides call this first and keep their own descriptor type.
    virtual bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor);
    virtual bool AcceptsApplyDefaultFromKeyBoard() const { return true; }
    virtual void Select(bool select);
    virtual void SetControlLabel(const TString<wchar_t>& label);
    virtual unsigned int GetWidth() const;
    virtual void SetWidth(unsigned int width);
    virtual unsigned int GetHeight() const;
    virtual void SetHeight(unsigned int height);
    virtual void SetControlSize(int x, int y, int width, int height);
    virtual void SetControlSize(int width, int height) { SetControlSize(-1, -1, width, height); }
    virtual void SetControlSize(const wxSize& size) { SetControlSize(-1, -1, size.x, size.y); }
    // Redraws; with `invalidate`, cached renderings are rebuilt first.
    virtual void RefreshUpdate(bool invalidate) = 0;
    virtual void OnChildSize(wxSizeEvent&) {}
    virtual void OnUpdateView() {}
    virtual void OnEnterWindow(wxMouseEvent& event);
    virtual void OnLeaveWindow(wxMouseEvent& event);
    virtual void OnSize(wxSizeEvent& event);
    virtual void OnSetFocus(wxFocusEvent& event);
    virtual void OnKillFocus(wxFocusEvent& event);

    bool Enable(bool enable = true) override;
    bool AcceptsFocus() const override { return true; }
    bool AcceptsFocusFromKeyboard() const override { return false; }

    // The pack images are read from; a control built under another control
    // starts with its parent's. Set before LoadDescriptor; not owned.
    void SetResources(IResourceProvider* resources) { m_resources = resources; }
    IResourceProvider* GetResources() const { return m_resources; }

    void SetBackgroundColor(const wxColour& colour);
    // Back to the descriptor's colour, or transparent when it has none.
    void ResetBackgroundColor();

    const Toolkit::smart_ptr<BaseCtrlDescriptor>& GetDescriptor() const { return m_descriptor; }
    const wxColour& GetBackgroundColor() const { return m_backgroundColour; }

protected:
    Toolkit::smart_ptr<BaseCtrlDescriptor> m_descriptor;
    IResourceProvider* m_resources = nullptr;
    TString<wchar_t> m_label;
    wxColour m_backgroundColour;
    bool m_loaded = false;
    bool m_inside = false;
    bool m_selected = false;
    bool m_focused = false;

private:
    void onEnter(wxMouseEvent& e) { OnEnterWindow(e); }
    void onLeave(wxMouseEvent& e) { OnLeaveWindow(e); }
    void onSize(wxSizeEvent& e) { OnSize(e); }
    void onSetFocus(wxFocusEvent& e) { OnSetFocus(e); }
    void onKillFocus(wxFocusEvent& e) { OnKillFocus(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
