#pragma once
#include "module/Export.h"
// Starts a plug-in's connection flow; the text and the flag mean what the
// connecting plug-in's states make of them.
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API ConnectProcessParameter : public IStateParameter {
public:
    ConnectProcessParameter(const TString<wchar_t>& text, bool flag) : m_text(text), m_flag(flag) {}
    const TString<wchar_t>& GetText() const { return m_text; }
    bool GetFlag() const { return m_flag; }

private:
    TString<wchar_t> m_text;
    bool m_flag;
};

} // namespace UIKit
