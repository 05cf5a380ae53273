#pragma once
#include "module/Export.h"
// A labelled button: the panel's enabled, disabled and selected images plus
// the pointer-over and pressed images, a tool tip and the expand flag.
#include "descriptors/StaticTextCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API ButtonCtrlDescriptor : public StaticTextCtrlDescriptor {
public:
    explicit ButtonCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    explicit ButtonCtrlDescriptor(const Toolkit::smart_ptr<ButtonCtrlDescriptor>& other);

    const ImagePtr& GetOverImage() const { return m_overImage; }
    const ImagePtr& GetPressedImage() const { return m_pressedImage; }
    const TString<wchar_t>& GetTooltip() const { return m_tooltip; }
    bool IsExpandOnClick() const { return m_expandOnClick; }

protected:
    ButtonCtrlDescriptor(const ButtonCtrlDescriptor&) = default;

private:
    ImagePtr m_overImage;
    ImagePtr m_pressedImage;
    TString<wchar_t> m_tooltip;
    bool m_expandOnClick = false;
};

} // namespace UIKit
