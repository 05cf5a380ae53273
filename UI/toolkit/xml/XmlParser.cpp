#include "xml/XmlParser.h"

#include "xml/XmlDocument.h"
#include "xml/XmlEntities.h"
#include "xml/XmlScanner.h"

namespace UIKit {

using namespace XmlScanner;

namespace {

// After the "/" of an empty element: the position after its ">", white
// space skipped, whatever comes before that ">".
const char* emptyElementEnd(const char* pos, const char* end, bool& selfClosing)
{
    selfClosing = true;
    return SkipBlanks(AfterTagEnd(pos, end), end);
}

} // namespace

XmlParser::XmlParser(XmlDocument& document, bool lazy)
    : m_document(document), m_stack(document.ParseStack()), m_lazy(lazy)
{
}

void XmlParser::ParseDocument(XML_NODE* top, const char* pos, const char* end)
{
    // Before the top element: a declaration, DOCTYPE lines and comments.
    pos = Find(pos, end, '<');
    while (pos < end) {
        const char next = At(pos, end, 1);
        if (next == '?')
            pos = Find(pos + 2, end, '<');
        else if (StartsWith(pos, end, "<!--"))
            pos = Find(SkipComment(pos, end), end, '<');
        else if (next == '!')
            pos = Find(parseDocType(top, pos, end), end, '<');
        else
            break;
    }
    if (pos >= end)
        return;
    bool selfClosing = false;
    pos = parseStartTag(top, pos, end, selfClosing);
    if (selfClosing)
        return;
    m_expanding = nullptr;
    m_stack.clear();
    m_stack.push_back(top);
    parseContent(pos, end);
    m_stack.clear();
}

void XmlParser::ParsePending(XML_NODE* element)
{
    if (!element->pending)
        return;
    const char* pos = element->pending;
    const char* end = pos + element->pendingLength;
    element->pending = nullptr;
    element->pendingLength = 0;
    m_expanding = element;
    m_stack.clear();
    m_stack.push_back(element);
    parseContent(pos, end);
    m_stack.clear();
}

const char* XmlParser::parseDocType(XML_NODE* top, const char* pos, const char* end)
{
    const char* word = pos + 1;
    const char* wordEnd = word;
    while (wordEnd < end && !IsBlank(*wordEnd) && *wordEnd != '>')
        ++wordEnd;
    if (wordEnd - word != 8 || std::memcmp(word, "!DOCTYPE", 8) != 0)
        return AfterTagEnd(pos, end);

    auto* doctype = static_cast<XML_DOCTYPE*>(m_document.Allocate(sizeof(XML_DOCTYPE)));
    *doctype = XML_DOCTYPE{nullptr, nullptr, nullptr};
    const char* name = SkipBlanks(wordEnd, end);
    const char* p = name;
    while (p < end && !IsBlank(*p) && *p != '>' && *p != '[')
        ++p;
    if (p > name)
        doctype->name = m_document.CopyString(name, static_cast<size_t>(p - name));
    int found = 0;
    while (p < end && *p != '>') {
        if (*p != '"') {
            ++p;
            continue;
        }
        const char* close = Find(p + 1, end, '"');
        if (found < 2)
            (found++ == 0 ? doctype->first : doctype->second) =
                m_document.CopyString(p + 1, static_cast<size_t>(close - p - 1));
        p = close == end ? close : close + 1;
    }
    top->doctype = doctype;
    return p < end ? p + 1 : end;
}

const char* XmlParser::parseStartTag(XML_NODE* element, const char* pos, const char* end, bool& selfClosing)
{
    selfClosing = false;
    const char* name = pos + 1;
    const char* p = name;
    while (p < end && !EndsName(*p))
        ++p;
    element->source = name;
    element->tag.name = m_document.CopyString(name, static_cast<size_t>(p - name));
    if (p >= end)
        return p;
    if (*p == '>')
        return p + 1;
    if (*p == '/')
        return emptyElementEnd(p + 1, end, selfClosing);
    for (++p;;) {
        p = SkipBlanks(p, end);
        if (p >= end)
            return p;
        if (*p == '>')
            return p + 1;
        if (*p == '/')
            return emptyElementEnd(p + 1, end, selfClosing);
        p = parseAttribute(element, p, end);
    }
}

const char* XmlParser::parseAttribute(XML_NODE* element, const char* pos, const char* end)
{
    const char* name = pos;
    const char* p = pos;
    while (p < end && !IsBlank(*p) && *p != '=' && *p != '>' && *p != '/')
        ++p;
    const char* nameEnd = p;
    p = SkipBlanks(p, end);
    // Only name="value" is an attribute; a bare name, an unquoted or a
    // single-quoted value is stepped over.
    if (p >= end || *p != '=')
        return p;
    if (At(p, end, 1) != '"') {
        ++p;
        while (p < end && !IsBlank(*p) && *p != '>' && *p != '/')
            ++p;
        return p;
    }
    const char* raw = p + 2;
    const char* close = Find(raw, end, '"');
    XML_TAG attribute{m_document.CopyString(name, static_cast<size_t>(nameEnd - name)), nullptr, 0, false};
    if (close > raw) {
        attribute.value = static_cast<char*>(m_document.Allocate(static_cast<size_t>(close - raw) + 1));
        attribute.valueLength = tag_code_to_tag(attribute.value, raw, static_cast<uint32_t>(close - raw));
        attribute.value[attribute.valueLength] = '\0';
    }
    m_document.Append(element->attributes, attribute);
    return close < end ? close + 1 : close;
}

void XmlParser::parseContent(const char* pos, const char* end)
{
    while (!m_stack.empty()) {
        pos = SkipBlanks(pos, end);
        if (pos >= end)
            return; // elements left open end with the text
        XML_NODE* current = m_stack.back();
        if (*pos != '<') {
            pos = parseText(current, pos, end);
            continue;
        }
        const char next = At(pos, end, 1);
        if (next == '/') {
            pos = closeElement(pos, end);
        } else if (next == '!') {
            if (StartsWith(pos, end, CDATA_IN))
                pos = parseCData(current, pos, end);
            else if (StartsWith(pos, end, "<!--"))
                pos = SkipComment(pos, end); // also right before a closing tag
            else
                pos = AfterTagEnd(pos, end);
        } else if (next == '?') {
            pos = AfterTagEnd(pos, end);
        } else if (m_lazy && current != m_expanding) {
            pos = deferChildren(current, pos, end);
        } else {
            pos = parseChild(current, pos, end);
        }
    }
}

const char* XmlParser::parseText(XML_NODE* element, const char* pos, const char* end)
{
    const char* lt = Find(pos, end, '<');
    const auto raw = static_cast<uint32_t>(lt - pos);
    char* value = static_cast<char*>(m_document.Allocate(raw + 1));
    const uint32_t length = tag_code_to_tag(value, pos, raw);
    value[length] = '\0';
    element->tag = XML_TAG{element->tag.name, value, length, false};
    return lt;
}

const char* XmlParser::parseCData(XML_NODE* element, const char* pos, const char* end)
{
    const char* value = pos + CDATA_IN_LEN;
    const char* close = FindText(value, end, CDATA_OUT);
    const auto length = static_cast<uint32_t>(close - value);
    element->tag = XML_TAG{element->tag.name, m_document.CopyString(value, length), length, true};
    return close < end ? close + CDATA_OUT_LEN : close;
}

const char* XmlParser::parseChild(XML_NODE* parent, const char* pos, const char* end)
{
    XML_NODE* child = m_document.NewNode(parent);
    child->index = parent->children.count;
    m_document.Append(parent->children, child);
    bool selfClosing = false;
    pos = parseStartTag(child, pos, end, selfClosing);
    if (!selfClosing)
        m_stack.push_back(child);
    return pos;
}

const char* XmlParser::deferChildren(XML_NODE* element, const char* pos, const char* end)
{
    m_stack.pop_back();
    // Nothing after the top element is read, so its pending text can run to
    // the end of the document: its closing tag then ends the later parse, as
    // in an eager parse, and no scan is needed.
    if (m_stack.empty() && !m_expanding) {
        element->pending = pos;
        element->pendingLength = static_cast<uint32_t>(end - pos);
        return end;
    }
    XmlClosingTags& learnt = m_document.ClosingTags();
    const char* close = learnt.Find(element->source);
    if (!close || close < pos || close > end) {
        const char* name = element->tag.name;
        close = FindClosingTag(pos, end, name, std::strlen(name), learnt);
    }
    element->pending = pos;
    element->pendingLength = static_cast<uint32_t>(close - pos);
    return close < end ? AfterTagEnd(close + 2, end) : close;
}

const char* XmlParser::closeElement(const char* pos, const char* end)
{
    // The name in a closing tag is not checked: it closes the innermost element.
    m_stack.pop_back();
    return AfterTagEnd(pos + 2, end);
}

} // namespace UIKit
