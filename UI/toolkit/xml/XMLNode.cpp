#include "xml/XMLNode.h"

#include "Toolkit/UTF8.h"
#include "xml/XmlDom.h"

namespace UIKit {
namespace {

TString<wchar_t> wide(const char* text)
{
    return text ? Toolkit::UTF8::ToUNICODE(text) : TString<wchar_t>();
}

} // namespace

XMLNode::XMLNode(XML_NODE* element)
    : m_element(element),
      m_tagName(wide(node_name(element))),
      m_class(wide(node_attribute(element, "class"))),
      m_name(wide(node_attribute(element, "name")))
{
}

} // namespace UIKit
