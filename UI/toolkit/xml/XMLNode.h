#pragma once
// A shareable handle on one element of a loaded tree, from which descriptors
// are built. It borrows the element: the XMLLoader that owns the tree must
// outlive every node made from it.
#include "Toolkit/TString.h"
#include "xml/XmlTypes.h"

namespace UIKit {

class XMLNode {
public:
    // Reads the element's name and its "class" and "name" attributes once.
    explicit XMLNode(XML_NODE* element);

    XML_NODE* GetElement() const { return m_element; }
    // The element's own name, e.g. "Control".
    const TString<wchar_t>& GetTagName() const { return m_tagName; }
    // The "class" attribute (the control class), empty when absent.
    const TString<wchar_t>& GetClass() const { return m_class; }
    // The "name" attribute, empty when absent.
    const TString<wchar_t>& GetName() const { return m_name; }

private:
    XML_NODE* m_element;
    TString<wchar_t> m_tagName;
    TString<wchar_t> m_class;
    TString<wchar_t> m_name;
};

} // namespace UIKit
