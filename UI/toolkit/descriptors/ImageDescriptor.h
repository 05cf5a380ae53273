#pragma once
#include "module/Export.h"
// A named skin image with its nine-slice margins, read from one child
// element: the child's text names the image, its "margin" attribute gives
// the margins in the order top, left, right, bottom (the order the
// nine-slice image control takes them).
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/gdicmn.h>
#include <wx/image.h>

namespace UIKit {

class XMLNode;

class UIKIT_API ImageDescriptor {
public:
    ImageDescriptor(const TString<char>& childName, Toolkit::smart_ptr<XMLNode> node);
    // An image made in code (tests, generated controls).
    ImageDescriptor(const wxImage& image, const TString<wchar_t>& name, const wxRect& margin);

    const wxImage& GetImage() const { return m_image; }
    const TString<wchar_t>& GetName() const { return m_name; }
    const wxRect& GetMargin() const { return m_margin; }
    bool IsOk() const { return m_image.IsOk(); }

    unsigned int GetMarginTop() const { return clamp(m_margin.x); }
    unsigned int GetMarginLeft() const { return clamp(m_margin.y); }
    unsigned int GetMarginRight() const { return clamp(m_margin.width); }
    unsigned int GetMarginBottom() const { return clamp(m_margin.height); }

private:
    static unsigned int clamp(int v) { return v < 0 ? 0u : unsigned(v); }

    wxImage m_image;
    TString<wchar_t> m_name;
    wxRect m_margin;
};

} // namespace UIKit
