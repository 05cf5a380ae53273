#pragma once
#include "module/Export.h"
// The skin's check box: a button that draws, beside its label, one of three
// state images (active, inactive, unknown). It never changes its state by
// itself: its owner writes m_state and redraws it with RefreshUpdate(false).
#include "controls/ButtonCtrl.h"
#include "descriptors/StatesBoxCtrlDescriptor.h"
#include "xml/Padding.h"

namespace UIKit {

class UIKIT_API StatesBoxCtrl : public ButtonCtrl {
public:
    enum State { Active = 0, Inactive = 1, Unknown = 2 };

    StatesBoxCtrl(wxWindow* parent, int id, const wxRect& bounds);
    ~StatesBoxCtrl() override = default;

    // False, with nothing done, for a null descriptor.
    bool LoadDescriptor(Toolkit::smart_ptr<BaseCtrlDescriptor> descriptor) override;
    // The button's label handling, then the text fitted beside the state image.
    void SetControlLabel(const TString<wchar_t>& text) override;
    void OnSize(wxSizeEvent& event) override;
    void DrawCustom(wxDC& dc) override;

    const wxPoint& GetStateImagePosition() const { return m_stateImagePosition; }
    const wxRect& GetFittedLabelArea() const { return m_fittedArea; }
    const TString<wchar_t>& GetFittedLabel() const { return m_fittedLabel; }

    // 0 shows the active image, 1 the inactive one, anything else the unknown one.
    int m_state = Unknown;

private:
    void placeStateImage();
    ImageCtrl* stateImage() const;

    wxSize m_stateImageSize;
    wxPoint m_stateImagePosition;
    Toolkit::smart_ptr<Padding> m_stateImageMargin;
    Drawing::ContentAlignment m_stateImageSide = Drawing::MiddleLeft;
    Toolkit::smart_ptr<ImageCtrl> m_activeImage;
    Toolkit::smart_ptr<ImageCtrl> m_inactiveImage;
    Toolkit::smart_ptr<ImageCtrl> m_unknownImage;
    Toolkit::smart_ptr<StatesBoxCtrlDescriptor> m_box;
    TString<wchar_t> m_fittedLabel;
    wxRect m_fittedArea;
};

} // namespace UIKit
