#include "frames/FrameCtrl.h"

#include "Toolkit/Thread.h"
#include "controls/ImageCtrl.h"
#include "descriptors/FrameCtrlDescriptor.h"
#include "factory/CtrlFactory.h"

#include <wx/dcbuffer.h>
#include <wx/utils.h>

namespace UIKit {

wxBEGIN_EVENT_TABLE(FrameCtrl, wxSkinFrameBase)
    EVT_PAINT(FrameCtrl::onPaint)
    EVT_ERASE_BACKGROUND(FrameCtrl::onErase)
    EVT_SIZE(FrameCtrl::onSize)
    EVT_WINDOW_CREATE(FrameCtrl::OnWindowCreate)
wxEND_EVENT_TABLE()

FrameCtrl::FrameCtrl(wxWindow* parent, const TString<wchar_t>& title, int id, const wxRect& bounds, long style)
    : wxSkinFrameBase(parent, title, id, bounds, style)
{
}

bool FrameCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    return LoadDescriptor(descriptor, CtrlFactory::Instance().get());
}

bool FrameCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor, const CtrlFactory* factory)
{
    m_descriptor = descriptor;
    const wxSize size = descriptor->GetBounds().GetSize();
    // The frame's own background is not shared through the appearance cache:
    // the frame resizes it in place.
    if (auto panel = descriptor.DynamicCast<PanelCtrlDescriptor>())
        if (panel->GetNormalImage() && panel->GetNormalImage()->IsOk()) {
            m_background = Toolkit::make_smart<ImageCtrl>(panel->GetNormalImage(), size);
            m_shapeSize = wxSize();
        }

    if (factory)
        factory->CreateChildren(this, *descriptor);
    if (auto frame = descriptor.DynamicCast<FrameCtrlDescriptor>())
        SetMovable(frame->IsMovable());

    SetSize(ClientToWindowSize(size));
    Centre(wxBOTH);
    // A size the description does not give reads as (0, 0): no limit.
    if (descriptor->GetMinSize() != wxSize(0, 0))
        SetMinSize(descriptor->GetMinSize());
    if (descriptor->GetMaxSize() != wxSize(0, 0))
        SetMaxSize(descriptor->GetMaxSize());
    cutShape();
    return true;
}

void FrameCtrl::cutShape()
{
    if (!m_background || !m_background->GetBitmap().IsOk() || m_background->GetBitmap().GetSize() == m_shapeSize)
        return;
    // The window keeps the outline and applies it again when it is realised.
    m_shapeSize = m_background->GetBitmap().GetSize();
    // The image the bitmap was rendered from: at the pack's own size that is
    // the decoded image itself, with no copy back from the bitmap.
    wxImage image = m_background->RenderImage(m_shapeSize);
    SetWindowShape(image);
}

void FrameCtrl::OnWindowCreate(wxWindowCreateEvent& event)
{
    if (event.GetWindow() == this)
        cutShape();
    event.Skip();
}

bool FrameCtrl::CreateShape()
{
    if (m_background && m_background->GetBitmap().GetSize() != GetClientSize())
        m_background->Resize(GetClientSize());
    cutShape();
    return true;
}

void FrameCtrl::OnPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    if (m_background)
        m_background->Draw(dc, wxPoint(0, 0));
    DrawCustom(dc);
}

void FrameCtrl::OnSize(wxSizeEvent&)
{
    CreateShape();
    Refresh(true);
    Update();
}

void FrameCtrl::DrawBitmap(wxDC& dc, const wxRect& area)
{
    if (m_background)
        Blit(dc, m_background->GetBitmap(), area);
}

bool FrameCtrl::Show(bool show)
{
    return wxSkinFrameBase::Show(show);
}

void FrameCtrl::SetWaitCursor()
{
    if (!Toolkit::Thread::IsMainThread())
        return;
    static const wxCursor wait(wxCURSOR_WAIT);
    wxSetCursor(wait);
}

void FrameCtrl::RestorePreviousCursor()
{
    if (!Toolkit::Thread::IsMainThread())
        return;
    wxSetCursor(wxNullCursor);
}

} // namespace UIKit
