#include "xml/XMLNode.h"

#include "Toolkit/UTF8.h"
#include "xml/ErrorSink.h"
#include "xml/XmlDom.h"


namespace UIKit {
namespace {

TString<wchar_t> wide(const char* text)
{
    return text ? Toolkit::UTF8::ToUNICODE(text) : TString<wchar_t>();
}

} // namespace

int DocumentOrigin::LineOf(const XML_NODE* element) const
{
    return element ? int(node_line(element)) : 0;
}

XMLNode::XMLNode(XML_NODE* element, Toolkit::smart_ptr<DocumentOrigin> origin)
    : m_element(element),
      m_origin(std::move(origin)),
      m_tagName(wide(node_name(element))),
      m_class(wide(node_attribute(element, "class"))),
      m_name(wide(node_attribute(element, "name")))
{
}

int XMLNode::GetLine() const
{
    return m_origin ? m_origin->LineOf(m_element) : 0;
}

void XMLNode::Report(const std::string& message) const
{
    ErrorSink::Report(m_origin ? m_origin->file : std::string(), GetLine(), message);
}

} // namespace UIKit
