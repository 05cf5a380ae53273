#include "controls/ProgressBarCtrl.h"

#include "controls/ImageCtrl.h"
#include "xml/IResourceProvider.h"

#include <algorithm>
#include <utility>

namespace UIKit {

ProgressBarCtrl::ProgressBarCtrl(wxWindow* parent, int id, const wxRect& bounds)
    : SkinnedControl(parent, id, bounds, wxNO_BORDER)
{
    SetBackgroundStyle(wxBG_STYLE_CUSTOM);
}

bool ProgressBarCtrl::LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor)
{
    Control::LoadDescriptor(descriptor);
    m_progress = descriptor.DynamicCast<ProgressBarCtrlDescriptor>();
    m_backgroundImage = {};
    if (!m_progress)
        return true;
    if (isFrameMode()) {
        m_strip.Load(m_progress->GetAnimationStrip(), unsigned(std::max(0, m_progress->GetFrameCount())));
    } else if (m_resources && m_progress->GetBackgroundImage()->IsOk() && m_progress->GetProgressImage()->IsOk()) {
        m_backgroundImage = m_resources->ImageCtrlWithIdentifier(m_progress->GetBackgroundImage(), GetSize());
        const wxRect& padding = m_progress->GetPadding();
        m_progressPosition = m_progress->HasPadding() ? wxPoint(padding.x, padding.y) : wxPoint(0, 0);
    }
    update();
    return true;
}

bool ProgressBarCtrl::isFrameMode() const
{
    return m_progress && m_progress->GetProgressStyle() == ProgressBarCtrlDescriptor::Animation;
}

void ProgressBarCtrl::SetValue(long long value)
{
    if (value == m_value)
        return;
    m_value = value;
    update();
}

void ProgressBarCtrl::SetRange(long long a, long long b)
{
    const long long minimum = std::min(a, b), maximum = std::max(a, b);
    if (minimum == m_minimum && maximum == m_maximum)
        return;
    m_minimum = minimum;
    m_maximum = maximum;
    update();
}

void ProgressBarCtrl::SetValues(long long minimum, long long value, long long maximum)
{
    if (minimum > maximum)
        std::swap(minimum, maximum);
    if (minimum == m_minimum && value == m_value && maximum == m_maximum)
        return;
    m_minimum = minimum;
    m_value = value;
    m_maximum = maximum;
    update();
}

int ProgressBarCtrl::GetBarWidth() const
{
    return m_progressImage && m_value > 0 ? m_progressImage->GetSize().x : 0;
}

unsigned int ProgressBarCtrl::GetFrame() const
{
    const unsigned int count = m_strip.GetFrameCount();
    if (count == 0 || m_maximum <= m_minimum || m_value <= 0)
        return 0;
    // 128-bit so that a range near the 64-bit limits cannot overflow.
    const __int128 frame = __int128(count - 1) * m_value / (__int128(m_maximum) - m_minimum);
    return unsigned(std::min<__int128>(frame, count - 1));
}

void ProgressBarCtrl::update()
{
    m_value = std::clamp(m_value, m_minimum, m_maximum);
    m_progressImage = {};
    if (m_backgroundImage && m_resources && m_value > 0 && m_value <= m_maximum) {
        // The bar fills value / maximum of the inner area: the range is
        // taken to start at 0.
        const wxRect& padding = m_progress->GetPadding();
        const bool padded = m_progress->HasPadding();
        const int innerWidth = GetSize().x - (padded ? padding.x + padding.width : 0);
        const int innerHeight = GetSize().y - (padded ? padding.y + padding.height : 0);
        const int width = int(__int128(std::max(0, innerWidth)) * m_value / m_maximum);
        if (width > 0 && innerHeight > 0)
            m_progressImage =
                m_resources->ImageCtrlWithIdentifier(m_progress->GetProgressImage(), wxSize(width, innerHeight));
    }
    RefreshUpdate(false);
}

void ProgressBarCtrl::DrawCustom(wxDC& dc)
{
    if (isFrameMode()) {
        m_strip.Draw(dc, GetSize(), GetFrame());
        return;
    }
    if (m_backgroundImage)
        m_backgroundImage->Draw(dc, wxPoint(0, 0));
    if (m_value > 0 && m_progressImage)
        m_progressImage->Draw(dc, m_progressPosition);
}

} // namespace UIKit
