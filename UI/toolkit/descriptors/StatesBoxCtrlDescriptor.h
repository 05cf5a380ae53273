#pragma once
#include "module/Export.h"
// A button with a state image (inactive, active, unknown) beside its label.
#include "descriptors/ButtonCtrlDescriptor.h"
#include "xml/Padding.h"

namespace UIKit {

class UIKIT_API StatesBoxCtrlDescriptor : public ButtonCtrlDescriptor {
public:
    explicit StatesBoxCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    explicit StatesBoxCtrlDescriptor(const Toolkit::smart_ptr<StatesBoxCtrlDescriptor>& other);

    const wxSize& GetStateImageSize() const { return m_stateImageSize; }
    const Toolkit::smart_ptr<Padding>& GetStateImageMargin() const { return m_stateImageMargin; }
    Drawing::ContentAlignment GetStateImageSide() const { return m_stateImageSide; }
    // Null when the element does not have exactly one "StateImage" child.
    const ImagePtr& GetInactiveImage() const { return m_inactiveImage; }
    const ImagePtr& GetActiveImage() const { return m_activeImage; }
    const ImagePtr& GetUnknownImage() const { return m_unknownImage; }

protected:
    StatesBoxCtrlDescriptor(const StatesBoxCtrlDescriptor&) = default;

private:
    wxSize m_stateImageSize;
    Toolkit::smart_ptr<Padding> m_stateImageMargin;
    Drawing::ContentAlignment m_stateImageSide = Drawing::MiddleLeft;
    ImagePtr m_inactiveImage;
    ImagePtr m_activeImage;
    ImagePtr m_unknownImage;
};

} // namespace UIKit
