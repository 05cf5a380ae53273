#include "frames/wxSkinFrameBase.h"

#include "frames/OutlineRegion.h"

#include "Toolkit/PathManager.h"
#include "factory/ControlIds.h"

#include <wx/icon.h>
#include <wx/region.h>

#include <gtk/gtk.h>

namespace UIKit {

bool wxSkinFrameBase::bNO = false;
bool wxSkinFrameBase::bNE = false;
bool wxSkinFrameBase::bSO = false;
bool wxSkinFrameBase::bSE = false;

wxIMPLEMENT_DYNAMIC_CLASS(wxSkinFrameBase, wxFrame);

wxBEGIN_EVENT_TABLE(wxSkinFrameBase, wxFrame)
    EVT_LEFT_DOWN(wxSkinFrameBase::OnLeftDown)
    EVT_LEFT_UP(wxSkinFrameBase::OnLeftUp)
    EVT_MOTION(wxSkinFrameBase::OnMouseMove)
    EVT_BUTTON(ID_FRAME_CLOSE, wxSkinFrameBase::onCloseFrame)
    EVT_CLOSE(wxSkinFrameBase::onClose)
    EVT_BUTTON(ID_FRAME_MINIMIZE, wxSkinFrameBase::OnMinimizeFrame)
wxEND_EVENT_TABLE()

wxSkinFrameBase::wxSkinFrameBase() = default;

wxSkinFrameBase::wxSkinFrameBase(wxWindow* parent, const TString<wchar_t>& title, int id, wxRect bounds,
                                 long style)
    : wxFrame(parent, id, wxString(title), bounds.GetPosition(), bounds.GetSize(), style, wxEmptyString)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    giveBackWindowManagerFunctions(style);
    setIconFromTheme();
}

void wxSkinFrameBase::giveBackWindowManagerFunctions(long style)
{
    // A frame without native decoration loses the window manager's minimise,
    // maximise and close functions; give back those the style asks for.
    GtkWidget* widget = GetHandle();
    if (!widget || !gtk_widget_get_realized(widget))
        gtk_widget_realize(widget);
    GdkWindow* window = widget ? gtk_widget_get_window(widget) : nullptr;
    if (window)
        gdk_window_set_functions(window, GdkWMFunction(WindowManagerFunctions(style)));
}

int wxSkinFrameBase::WindowManagerFunctions(long style)
{
    // Only a frame with a resize border may be resized by the window manager.
    int functions = GDK_FUNC_MOVE;
    if (style & wxRESIZE_BORDER)
        functions |= GDK_FUNC_RESIZE;
    if (style & wxMINIMIZE_BOX)
        functions |= GDK_FUNC_MINIMIZE;
    if (style & wxMAXIMIZE_BOX)
        functions |= GDK_FUNC_MAXIMIZE;
    if (style & wxCLOSE_BOX)
        functions |= GDK_FUNC_CLOSE;
    return functions;
}

wxPoint wxSkinFrameBase::framePoint(const wxMouseEvent& event) const
{
    const auto* source = wxDynamicCast(event.GetEventObject(), wxWindow);
    if (!source || source == this)
        return event.GetPosition();
    return ScreenToClient(source->ClientToScreen(event.GetPosition()));
}

void wxSkinFrameBase::setIconFromTheme()
{
    const wxString path = "/usr/share/icons/hicolor/48x48/apps/icon_" +
                          wxString::FromUTF8(Toolkit::PathManager::Instance().GetApplicationName()) + ".png";
    if (!wxFileExists(path))
        return;
    wxIcon icon;
    if (icon.LoadFile(path, wxBITMAP_TYPE_PNG))
        SetIcon(icon);
}

void wxSkinFrameBase::SetWindowShape(wxImage& image)
{
    SetShape(OutlineRegion(image));
}

void wxSkinFrameBase::SetWindowShape(wxBitmap& bitmap)
{
    SetShape(wxRegion(bitmap));
}

void wxSkinFrameBase::OnClose(wxCloseEvent& event)
{
    event.Skip();
}

void wxSkinFrameBase::OnCloseFrame(wxCommandEvent&)
{
    Close(false);
}

void wxSkinFrameBase::OnMinimizeFrame(wxCommandEvent&)
{
    Iconize(true);
}

void wxSkinFrameBase::OnMaximizeFrame(wxCommandEvent&)
{
    Maximize(!IsMaximized());
}

void wxSkinFrameBase::updateCornerFlags(const wxPoint& p)
{
    const wxSize client = GetClientSize();
    const auto inSquare = [&](int x, int y) { return wxRect(x, y, kCorner, kCorner).Contains(p); };
    bNO = bNE = bSO = bSE = false;
    if (inSquare(0, 0))
        bNO = true;
    else if (inSquare(client.x - kCorner, client.y - kCorner))
        bSE = true;
    else if (inSquare(client.x - kCorner, 0))
        bNE = true;
    else if (inSquare(0, client.y - kCorner))
        bSO = true;
}

void wxSkinFrameBase::OnLeftDown(wxMouseEvent& event)
{
    const wxPoint point = framePoint(event);
    if (m_movable) {
        CaptureMouse();
        m_dragOffset = ClientToScreen(point) - GetPosition();
    }
    if (m_resizable) {
        m_pressPosition = point;
        m_windowPositionAtPress = GetScreenPosition();
        m_windowSizeAtPress = GetSize();
        updateCornerFlags(point);
        if (bNO || bNE || bSO || bSE)
            m_dragMode = Resizing;
    }
}

void wxSkinFrameBase::OnMouseMove(wxMouseEvent& event)
{
    const wxPoint point = framePoint(event);
    if (m_resizable && !event.ButtonIsDown(wxMOUSE_BTN_ANY))
        updateCornerFlags(point);
    if (bSE && (m_resizable || m_dragMode == Resizing))
        SetCursor(wxCursor(wxCURSOR_SIZENWSE));
    else if (!bNE && !bSO)
        SetCursor(wxNullCursor);

    if (!HasCapture() || !event.Dragging() || !event.LeftIsDown())
        return;
    if (m_dragMode == Resizing) {
        if (bSE)
            SetSize(m_windowSizeAtPress + wxSize(point.x - m_pressPosition.x, point.y - m_pressPosition.y));
    } else {
        Move(ClientToScreen(point) - m_dragOffset);
    }
}

void wxSkinFrameBase::OnLeftUp(wxMouseEvent&)
{
    if (m_dragMode != Moving) {
        m_dragMode = Moving;
        Refresh(true);
    }
    if (HasCapture())
        ReleaseMouse();
}

} // namespace UIKit
