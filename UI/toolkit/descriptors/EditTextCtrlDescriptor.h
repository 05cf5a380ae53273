#pragma once
#include "module/Export.h"
// An edit box: its style flags and the filter applied to typed text.
#include "descriptors/StaticTextCtrlDescriptor.h"

namespace UIKit {

class UIKIT_API EditTextCtrlDescriptor : public StaticTextCtrlDescriptor {
public:
    enum InputFilter { FilterNone = 0, FilterAscii = 1, FilterAlpha = 2, FilterAlphaNum = 3, FilterNum = 4 };

    explicit EditTextCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);

    bool IsPassword() const { return m_password; }
    bool IsMultiline() const { return m_multiline; }
    bool IsReadOnly() const { return m_readOnly; }
    bool HasBorder() const { return m_border; }
    InputFilter GetFilter() const { return m_filter; }

private:
    bool m_password = false;
    bool m_multiline = false;
    bool m_readOnly = false;
    bool m_border = true;
    InputFilter m_filter = FilterNone;
};

} // namespace UIKit
