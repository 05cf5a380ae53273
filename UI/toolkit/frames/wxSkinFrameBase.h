#pragma once
#include "module/Export.h"
// A top-level frame without the system's decoration look: its outline is
// cut to the shape of its background (magenta, or alpha below 128, is cut
// away), the user drags it by any point of its surface, and its own close
// and minimise buttons are skinned buttons with reserved ids.
#include "Toolkit/TString.h"

#include <wx/frame.h>

namespace UIKit {

class UIKIT_API wxSkinFrameBase : public wxFrame {
public:
    wxSkinFrameBase();
    wxSkinFrameBase(wxWindow* parent, const TString<wchar_t>& title, int id, wxRect bounds, long style);

    void SetWindowShape(wxImage& image);
    void SetWindowShape(wxBitmap& bitmap);
    void SetMovable(bool movable) { m_movable = movable; }
    void SetStartReduced(bool reduced) { m_startReduced = reduced; }
    void SetResizable(bool resizable) { m_resizable = resizable; }
    // The window-manager functions the frame's style grants (GDK_FUNC_* bits).
    static int WindowManagerFunctions(long style);
    bool IsMovable() const { return m_movable; }
    bool IsStartReduced() const { return m_startReduced; }
    bool IsResizable() const { return m_resizable; }

    virtual void OnClose(wxCloseEvent& event);
    virtual void OnCloseFrame(wxCommandEvent& event);

    void OnMinimizeFrame(wxCommandEvent& event);
    void OnMaximizeFrame(wxCommandEvent& event);

    // Which corner square (15 x 15) a corner resize started from; shared by
    // all frames, as only one frame is dragged at a time.
    static bool bNO, bNE, bSO, bSE;

protected:
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnMouseMove(wxMouseEvent& event);

private:
    enum DragMode { Moving = 0, Resizing = 1 };
    static constexpr int kCorner = 15;

    void giveBackWindowManagerFunctions(long style);
    // The event's point in this frame's client coordinates, whichever
    // window (a label forwarding its events, say) the event came from.
    wxPoint framePoint(const wxMouseEvent& event) const;
    void setIconFromTheme();
    void updateCornerFlags(const wxPoint& client);

    bool m_startReduced = false;
    bool m_resizable = false;
    int m_dragMode = Moving;
    bool m_movable = false;
    wxPoint m_dragOffset;
    wxPoint m_pressPosition;
    wxPoint m_windowPositionAtPress;
    wxSize m_windowSizeAtPress;

    void onClose(wxCloseEvent& e) { OnClose(e); }
    void onCloseFrame(wxCommandEvent& e) { OnCloseFrame(e); }

    wxDECLARE_DYNAMIC_CLASS(wxSkinFrameBase);
    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
