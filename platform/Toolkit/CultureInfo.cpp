#include "Toolkit/CultureInfo.h"

namespace Toolkit {

CultureInfo::CultureInfo(const TString<wchar_t>& name, const TString<wchar_t>& nativeName)
    : m_name(name), m_nativeName(nativeName)
{
}

TString<wchar_t> CultureInfo::GetParentName() const { return TString<wchar_t>(m_name.substr(0, m_name.find(L'-'))); }

} // namespace Toolkit
