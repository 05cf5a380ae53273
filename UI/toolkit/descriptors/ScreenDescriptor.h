#pragma once
#include "module/Export.h"
// One screen: a panel with a group name and a title (font, image, label).
#include "descriptors/FontDescriptor.h"
#include "descriptors/PanelCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API ScreenDescriptor : public PanelCtrlDescriptor {
public:
    explicit ScreenDescriptor(Toolkit::smart_ptr<XMLNode> node);

    const TString<wchar_t>& GetGroup() const { return m_group; }
    const Toolkit::smart_ptr<FontDescriptor>& GetTitleFont() const { return m_titleFont; }
    const wxImage& GetTitleImage() const { return m_titleImage; }
    const TString<wchar_t>& GetTitleLabel() const { return m_titleLabel; }

private:
    TString<wchar_t> m_group;
    Toolkit::smart_ptr<FontDescriptor> m_titleFont;
    wxImage m_titleImage;
    TString<wchar_t> m_titleLabel;
};

} // namespace UIKit
