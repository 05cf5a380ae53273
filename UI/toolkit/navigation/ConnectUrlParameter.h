#pragma once
#include "module/Export.h"
// Opens a connection to an address; the text and the flag mean what the
// connecting plug-in's states make of them.
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API ConnectUrlParameter : public IStateParameter {
public:
    ConnectUrlParameter(const TString<wchar_t>& text, bool flag) : m_text(text), m_flag(flag) {}
    const TString<wchar_t>& GetText() const { return m_text; }
    bool GetFlag() const { return m_flag; }

private:
    TString<wchar_t> m_text;
    bool m_flag;
};

} // namespace UIKit
