#pragma once
#include "module/Export.h"
// The skin's vertical scroll bar: a panel (the track) with a thumb image the
// user drags or moves with clicks. It converts track pixels to content pixels
// and reports every position change as wxEVT_SCROLL_CHANGED whose position is
// the content offset, processed at once so the owner scrolls in step.
#include "controls/PanelCtrl.h"

namespace UIKit {

class UIKIT_API VScrollBar : public PanelCtrl {
public:
    VScrollBar(wxWindow* parent, int id, const wxRect& bounds);

    virtual void OnLeftClick(wxMouseEvent& event);
    virtual void OnLeftRelease(wxMouseEvent& event);
    virtual void OnMotion(wxMouseEvent& event);

    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    void OnSize(wxSizeEvent& event) override;
    void DrawCustom(wxDC& dc) override;

    // Scales the bar to content `total` pixels high, of which `visible` are
    // shown; `count` rows fix the step the first time.
    void SetScroll(unsigned int total, unsigned int count, unsigned int visible);
    // Moves the thumb top to `position` track pixels, clamped to the track.
    void SetPos(double position);
    void OnUp();
    void OnDown();
    void SetVScrollBarToBottom();
    void AdjustThumbPosition();
    void SendScrollChange(int position);

    unsigned int GetStep() const { return m_step; }
    double GetRatio() const { return m_ratio; }
    double GetThumbPosition() const { return m_thumbPosition; }
    const wxRect& GetThumbRect() const { return m_thumbRect; }
    const wxRect& GetTrack() const { return m_track; }

private:
    void resetTrack();
    void onCaptureLost(wxMouseCaptureLostEvent&) {}

    // Owned here alone, not shared through the pack's cache: it is resized.
    Toolkit::smart_ptr<ImageCtrl> m_thumb;
    wxRect m_track;
    wxRect m_thumbRect;
    unsigned int m_step = 0;
    unsigned int m_count = 0;
    unsigned int m_visible = 0;
    double m_ratio = 0.0;
    double m_thumbPosition = 0.0;
    int m_dragOriginPosition = 0;
    int m_dragOriginY = 0;

    void onLeftDown(wxMouseEvent& e) { OnLeftClick(e); }
    void onLeftUp(wxMouseEvent& e) { OnLeftRelease(e); }
    void onMotion(wxMouseEvent& e) { OnMotion(e); }

    wxDECLARE_EVENT_TABLE();
};

} // namespace UIKit
