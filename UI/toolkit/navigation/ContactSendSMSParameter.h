#pragma once
#include "module/Export.h"
// Opens a plug-in's message editor for a contact (its number or name).
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API ContactSendSMSParameter : public IStateParameter {
public:
    explicit ContactSendSMSParameter(const TString<wchar_t>& text) : m_text(text) {}
    const TString<wchar_t>& GetText() const { return m_text; }

private:
    TString<wchar_t> m_text;
};

} // namespace UIKit
