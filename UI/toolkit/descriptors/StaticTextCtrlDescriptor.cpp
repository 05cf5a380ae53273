#include "descriptors/StaticTextCtrlDescriptor.h"

#include "xml/XMLLoader.h"

#include <wx/defs.h>

#include <array>
#include <utility>

namespace UIKit {

StaticTextCtrlDescriptor::StaticTextCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : PanelCtrlDescriptor(node), m_font(Toolkit::make_smart<FontDescriptor>(node))
{
    XMLLoader loader(node);
    m_label = loader.ReadLabel("Label", "");
    m_placement = ParsePlacement(loader.ReadString("Label", "placement"), wxALIGN_CENTER);
}

StaticTextCtrlDescriptor::StaticTextCtrlDescriptor(const Toolkit::smart_ptr<StaticTextCtrlDescriptor>& other)
    : StaticTextCtrlDescriptor(*other)
{
}

int StaticTextCtrlDescriptor::ParsePlacement(const TString<wchar_t>& word, int fallback)
{
    static const std::array<std::pair<const wchar_t*, int>, 12> words{{
        {L"TopLeft", wxALIGN_LEFT | wxALIGN_TOP},
        {L"LEFT", wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL},
        {L"MiddleLeft", wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL},
        {L"BottomLeft", wxALIGN_LEFT | wxALIGN_BOTTOM},
        {L"TopCenter", wxALIGN_CENTER_HORIZONTAL | wxALIGN_TOP},
        {L"CENTER", wxALIGN_CENTER},
        {L"MiddleCenter", wxALIGN_CENTER},
        {L"BottomCenter", wxALIGN_CENTER_HORIZONTAL | wxALIGN_BOTTOM},
        {L"TopRight", wxALIGN_RIGHT | wxALIGN_TOP},
        {L"RIGHT", wxALIGN_RIGHT | wxALIGN_CENTER_VERTICAL},
        {L"MiddleRight", wxALIGN_RIGHT | wxALIGN_CENTER_VERTICAL},
        {L"BottomRight", wxALIGN_RIGHT | wxALIGN_BOTTOM},
    }};
    for (const auto& [name, flags] : words)
        if (word == name)
            return flags;
    return fallback;
}

} // namespace UIKit
