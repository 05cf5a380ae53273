#pragma once
#include "module/Export.h"
// Opens the contact editor of a plug-in with a text to start from (a number
// or a name).
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API AddContactParameter : public IStateParameter {
public:
    explicit AddContactParameter(const TString<wchar_t>& text) : m_text(text) {}
    const TString<wchar_t>& GetText() const { return m_text; }

private:
    TString<wchar_t> m_text;
};

} // namespace UIKit
