#include "descriptors/FontDescriptor.h"

#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

namespace UIKit {
namespace {

// The skins name one face that the desktop lacks; it is drawn with the
// desktop's sans face, two points smaller to keep the designed widths.
constexpr const wchar_t* kSubstitutedFace = L"Tavro Standard Light";

} // namespace

FontDescriptor::FontDescriptor(Toolkit::smart_ptr<XMLNode> node)
{
    XMLLoader loader(node);
    m_fore = loader.ReadColor("Font", "fore");
    m_disabled = loader.ReadColor("Font", "disabled");
    if (!m_disabled.IsOk())
        m_disabled = m_fore;

    TString<wchar_t> face = loader.ReadString("Font", "name");
    const int ptsize = loader.ReadInt("Font", "ptsize", 10);
    int size = ptsize - 1;
    if (face == kSubstitutedFace) {
        face = L"Sans";
        size = ptsize - 2;
    }

    const TString<wchar_t> weight = loader.ReadString("Font", "weight");
    wxFontWeight wxWeight = wxFONTWEIGHT_NORMAL;
    if (weight == L"LIGHT") {
        m_weight = Light;
        wxWeight = wxFONTWEIGHT_LIGHT;
    } else if (weight == L"BOLD") {
        m_weight = Bold;
        wxWeight = wxFONTWEIGHT_BOLD;
    }
    const wxFontStyle style =
        loader.ReadString("Font", "style") == L"ITALIC" ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL;

    // wx refuses sizes below 1; a skin asking for less gets the smallest font.
    m_font = wxFont(std::max(size, 1), wxFONTFAMILY_DEFAULT, style, wxWeight, false, wxString(face),
                    wxFONTENCODING_DEFAULT);
}

void FontDescriptor::SetWeight(FontWeight weight)
{
    static constexpr wxFontWeight weights[] = {wxFONTWEIGHT_LIGHT, wxFONTWEIGHT_NORMAL, wxFONTWEIGHT_BOLD};
    m_weight = weight;
    m_font.SetWeight(weights[weight]);
}

} // namespace UIKit
