#pragma once
#include "module/Export.h"
// Texts (and a flag) that plug-ins hand to one another's states. Each kind
// is a type of its own, told apart by its Kind tag, so a state recognises
// what it received with a dynamic cast; what the text and the flag mean is
// the business of the states that read them.
#include "Toolkit/TString.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

template <class Kind>
class UIKIT_API TextParameter : public IStateParameter {
public:
    explicit TextParameter(const TString<wchar_t>& text) : m_text(text) {}
    const TString<wchar_t>& GetText() const { return m_text; }

private:
    TString<wchar_t> m_text;
};

template <class Kind>
class UIKIT_API TextFlagParameter : public IStateParameter {
public:
    TextFlagParameter(const TString<wchar_t>& text, bool flag) : m_text(text), m_flag(flag) {}
    const TString<wchar_t>& GetText() const { return m_text; }
    bool GetFlag() const { return m_flag; }

private:
    TString<wchar_t> m_text;
    bool m_flag;
};

} // namespace UIKit
