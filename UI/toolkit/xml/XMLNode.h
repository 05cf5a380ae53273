#pragma once
#include "module/Export.h"
// A shareable handle on one element of a loaded tree, from which descriptors
// are built. It borrows the element: the XMLLoader that owns the tree must
// outlive every node made from it. Each node also carries its document's
// origin, so what is built from it reads images and strings from the right
// pack and reports problems with the document's file name and line.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "xml/XmlTypes.h"

#include <string>

namespace UIKit {

class IResourceProvider;

// Where the elements of one loaded document come from.
struct UIKIT_API DocumentOrigin {
    // The name problems are reported under ("dashboard.xml"); may be empty.
    std::string file;
    // The pack images and labels are read from; not owned, may be null.
    IResourceProvider* resources = nullptr;

    // The 1-based line of the element in its document; 0 when unknown.
    int LineOf(const XML_NODE* element) const;
};

class UIKIT_API XMLNode {
public:
    // Reads the element's name and its "class" and "name" attributes once.
    explicit XMLNode(XML_NODE* element, Toolkit::smart_ptr<DocumentOrigin> origin = {});

    XML_NODE* GetElement() const { return m_element; }
    // The element's own name, e.g. "Control".
    const TString<wchar_t>& GetTagName() const { return m_tagName; }
    // The "class" attribute (the control class), empty when absent.
    const TString<wchar_t>& GetClass() const { return m_class; }
    // The "name" attribute, empty when absent.
    const TString<wchar_t>& GetName() const { return m_name; }

    // Null for a node made without an origin.
    const Toolkit::smart_ptr<DocumentOrigin>& GetOrigin() const { return m_origin; }
    // The element's 1-based line in its document; 0 when unknown.
    int GetLine() const;
    // Reports a problem of this element as "file:line: message".
    void Report(const std::string& message) const;

private:
    XML_NODE* m_element;
    Toolkit::smart_ptr<DocumentOrigin> m_origin;
    TString<wchar_t> m_tagName;
    TString<wchar_t> m_class;
    TString<wchar_t> m_name;
};

} // namespace UIKit
