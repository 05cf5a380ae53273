#include "controls/StatesBoxCtrl.h"

#include "controls/ImageCtrl.h"
#include "controls/LabelPainter.h"
#include "util/Util.h"

#include <wx/dcclient.h>

namespace UIKit {

StatesBoxCtrl::StatesBoxCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : ButtonCtrl(parent, id, bounds), m_stateImageMargin(Padding::Empty())
{
}

bool StatesBoxCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    m_box = descriptor.DynamicCast<StatesBoxCtrlDescriptor>();
    if (!m_box)
        return false;
    m_state = Inactive;
    m_stateImageSide = m_box->GetStateImageSide();
    // A private copy: the descriptor's margin is shared with other boxes.
    if (const auto& margin = m_box->GetStateImageMargin())
        m_stateImageMargin = Toolkit::smart_ptr<Padding>(
            new Padding(margin->GetLeft(), margin->GetTop(), margin->GetRight(), margin->GetBottom()));
    m_stateImageSize = m_box->GetStateImageSize();
    placeStateImage();
    m_activeImage = imageAt(m_box->GetActiveImage(), m_stateImageSize);
    m_inactiveImage = imageAt(m_box->GetInactiveImage(), m_stateImageSize);
    m_unknownImage = imageAt(m_box->GetUnknownImage(), m_stateImageSize);
    // Last, so the label is fitted with the state image already placed.
    return ButtonCtrl::LoadDescriptor(descriptor);
}

void StatesBoxCtrl::placeStateImage()
{
    const Padding& margin = *m_stateImageMargin;
    const int height = int(GetHeight() / 2);
    m_stateImagePosition.y = margin.GetTop() - m_stateImageSize.y / 2 + height;
    if (m_stateImageSide == Drawing::MiddleRight)
        m_stateImagePosition.x = int(GetWidth()) - m_stateImageSize.x - (margin.GetLeft() + margin.GetRight());
    else
        m_stateImagePosition.x = margin.GetLeft();
}

void StatesBoxCtrl::SetControlLabel(const TString<wchar_t>& text)
{
    ButtonCtrl::SetControlLabel(text);
    if (text.empty() || !m_box)
        return;
    const wxSize bounds = m_box->GetBounds().GetSize();
    m_fittedArea = wxRect(wxPoint(0, 0), bounds);
    if (m_stateImageSide != Drawing::MiddleRight) {
        const auto& margin = m_box->GetStateImageMargin();
        m_fittedArea.x = (margin ? margin->GetLeft() + margin->GetRight() : 0) + m_stateImageSize.x;
    }
    if (m_box->HasPadding()) {
        const wxRect& padding = m_box->GetPadding();
        m_fittedArea.x += padding.x;
        m_fittedArea.y += padding.y;
        m_fittedArea.width -= padding.x + padding.width;
        m_fittedArea.height -= padding.y + padding.height;
    }
    wxClientDC dc(this);
    Util::FormatLabelMultiline(dc, m_fittedArea.GetSize(), m_box->GetFont(), text, m_fittedLabel);
}

void StatesBoxCtrl::OnSize(wxSizeEvent& event)
{
    ButtonCtrl::OnSize(event);
    if (m_box)
        m_stateImageSize = m_box->GetStateImageSize();
    placeStateImage();
}

ImageCtrl* StatesBoxCtrl::stateImage() const
{
    switch (m_state) {
    case Active:
        return m_activeImage.get();
    case Inactive:
        return m_inactiveImage.get();
    default:
        return m_unknownImage.get();
    }
}

void StatesBoxCtrl::DrawCustom(wxDC& dc)
{
    // The button's background only: the label is drawn beside the state image.
    PanelCtrl::DrawCustom(dc);
    if (ImageCtrl* image = stateImage())
        image->Draw(dc, m_stateImagePosition);
    if (!m_fittedLabel.empty() && m_box)
        LabelPainter::Draw(dc, m_fittedLabel, m_fittedArea, m_box->GetPlacement(), m_box->GetFont().get(),
                           IsEnabled());
}

} // namespace UIKit
