#include "descriptors/EditTextCtrlDescriptor.h"

#include "xml/XMLLoader.h"

#include <array>
#include <utility>

namespace UIKit {

EditTextCtrlDescriptor::EditTextCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : StaticTextCtrlDescriptor(node)
{
    XMLLoader loader(node);
    m_password = loader.ReadBool("Style", "password", false);
    m_multiline = loader.ReadBool("Style", "multiline", false);
    m_readOnly = loader.ReadBool("Style", "readonly", false);
    m_border = loader.ReadBool("Style", "border", true);

    static const std::array<std::pair<const wchar_t*, InputFilter>, 5> filters{{
        {L"None", FilterNone},
        {L"Ascii", FilterAscii},
        {L"Alpha", FilterAlpha},
        {L"AlphaNum", FilterAlphaNum},
        {L"Num", FilterNum},
    }};
    const auto text = loader.ReadString("Filter", "");
    for (const auto& [word, filter] : filters)
        if (text == word)
            m_filter = filter;
}

} // namespace UIKit
