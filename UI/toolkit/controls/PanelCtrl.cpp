#include "controls/PanelCtrl.h"

#include "controls/ImageCtrl.h"
#include "xml/IResourceProvider.h"

namespace UIKit {

const wxEventType PanelCtrl::EVT_KEYPRESSED_ENTER = wxNewEventType();
const wxEventType PanelCtrl::EVT_KEYDOWN = wxNewEventType();
const wxEventType PanelCtrl::EVT_KEYUP = wxNewEventType();
const wxEventType PanelCtrl::EVT_KEYPRESSED_TAB = wxNewEventType();
const wxEventType PanelCtrl::EVT_KEYPRESSED_ESC = wxNewEventType();
const wxEventType PanelCtrl::EVT_SHORTKEY_HELP = wxNewEventType();

namespace {

PanelCtrl::HelpHotkeyTest& helpHotkeyTest()
{
    static PanelCtrl::HelpHotkeyTest test;
    return test;
}

int modifierBits(const wxKeyEvent& event)
{
    return (event.AltDown() ? PanelCtrl::ModAlt : 0) | (event.ControlDown() ? PanelCtrl::ModCtrl : 0) |
           (event.ShiftDown() ? PanelCtrl::ModShift : 0) | (event.MetaDown() ? PanelCtrl::ModMeta : 0);
}

} // namespace

wxBEGIN_EVENT_TABLE(PanelCtrl, SkinnedControl)
    EVT_MOUSEWHEEL(PanelCtrl::onWheel)
    EVT_KEY_DOWN(PanelCtrl::onKeyDown)
    EVT_KEY_UP(PanelCtrl::onKeyUp)
wxEND_EVENT_TABLE()

void PanelCtrl::SetHelpHotkeyTest(HelpHotkeyTest test)
{
    helpHotkeyTest() = std::move(test);
}

PanelCtrl::PanelCtrl(wxWindow* parent, int id, const wxRect& bounds, long style)
    : SkinnedControl(parent, id, bounds, style)
{
}

bool PanelCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    Control::LoadDescriptor(descriptor);
    m_panel = descriptor.DynamicCast<PanelCtrlDescriptor>();
    loadImages(descriptor->GetBounds().GetSize());
    RestorePreviousCursor();
    return true;
}

Toolkit::smart_ptr<ImageCtrl> PanelCtrl::imageAt(const ImagePtr& image, const wxSize& size) const
{
    return m_resources ? m_resources->ImageCtrlWithIdentifier(image, size) : Toolkit::smart_ptr<ImageCtrl>();
}

void PanelCtrl::loadImages(const wxSize& size)
{
    if (!m_panel)
        return;
    m_images.normal = imageAt(m_panel->GetNormalImage(), size);
    m_images.disabled = imageAt(m_panel->GetDisabledImage(), size);
    m_images.selected = imageAt(m_panel->GetSelectedImage(), size);
}

void PanelCtrl::OnSize(wxSizeEvent& event)
{
    loadImages(GetSize());
    Control::OnSize(event);
}

ImageCtrl* PanelCtrl::currentImage() const
{
    return m_images.Pick(IsEnabled(), IsSelected(), IsInside(), false);
}

void PanelCtrl::DrawCustom(wxDC& dc)
{
    if (ImageCtrl* image = currentImage())
        image->Draw(dc, wxPoint(0, 0));
}

void PanelCtrl::postCommand(wxEventType type, int id, int integer, long extra)
{
    wxCommandEvent event(type, id);
    event.SetEventObject(this);
    event.SetInt(integer);
    event.SetExtraLong(extra);
    // Posted, not sent: handlers run later from the event loop.
    AddPendingEvent(event);
}

void PanelCtrl::OnKeyDown(wxKeyEvent& event)
{
    m_controlHeld = event.ControlDown();
    m_shiftHeld = event.ShiftDown();
    const int code = event.GetKeyCode();
    if ((code == WXK_RETURN || code == WXK_NUMPAD_ENTER) && !event.ControlDown())
        postCommand(EVT_KEYPRESSED_ENTER, -1);
    else if (code == WXK_TAB)
        postCommand(EVT_KEYPRESSED_TAB, event.GetId());
    else if (code == WXK_ESCAPE)
        postCommand(EVT_KEYPRESSED_ESC, event.GetId());
    else
        postCommand(EVT_KEYDOWN, -1, code, modifierBits(event));
}

void PanelCtrl::OnKeyUp(wxKeyEvent& event)
{
    const int code = event.GetKeyCode();
    const int modifiers = (m_controlHeld ? WXK_CONTROL : 0) + (m_shiftHeld ? WXK_SHIFT : 0);
    const auto& isHelp = helpHotkeyTest();
    if (isHelp && isHelp(code + modifiers))
        postCommand(EVT_SHORTKEY_HELP, -1, code, modifiers);
    else
        postCommand(EVT_KEYUP, -1, code, modifierBits(event));
    m_controlHeld = false;
    m_shiftHeld = false;
}

void PanelCtrl::OnMouseWheel(wxMouseEvent& event)
{
    // A panel never consumes the wheel: its parent decides what scrolls.
    if (wxWindow* parent = GetParent())
        parent->GetEventHandler()->ProcessEvent(event);
}

void PanelCtrl::SetHandCursor()
{
    static const wxCursor hand(wxCURSOR_HAND);
    SetCursor(hand);
}

void PanelCtrl::SetWaitCursor()
{
    static const wxCursor wait(wxCURSOR_WAIT);
    SetCursor(wait);
}

void PanelCtrl::RestorePreviousCursor()
{
    SetCursor(wxNullCursor);
}

} // namespace UIKit
