#include "xml/XmlParser.h"

#include "xml/XmlDocument.h"
#include "xml/XmlEntities.h"
#include "xml/XmlScanner.h"

namespace UIKit {

using namespace XmlScanner;

namespace {

// After the "/" of an empty element: the position after its ">", white
// space skipped, whatever comes before that ">".
char* emptyElementEnd(char* pos, const char* end, bool& selfClosing)
{
    selfClosing = true;
    return SkipBlanks(AfterTagEnd(pos, end), end);
}

} // namespace

XmlParser::XmlParser(XmlDocument& document, bool lazy)
    : m_document(document), m_stack(document.ParseStack()), m_lazy(lazy)
{
}

void XmlParser::ParseDocument(XML_NODE* top, char* pos, char* end)
{
    // Before the top element: a declaration, DOCTYPE lines and comments.
    pos = Find(pos, end, '<');
    while (pos < end) {
        if (pos[1] == '?')
            pos = Find(pos + 2, end, '<');
        else if (StartsWith(pos, end, "<!--"))
            pos = Find(SkipComment(pos, end), end, '<');
        else if (pos[1] == '!')
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
    char* pos = element->pending;
    char* end = pos + element->pendingLength;
    element->pending = nullptr;
    element->pendingLength = 0;
    m_expanding = element;
    m_stack.clear();
    m_stack.push_back(element);
    parseContent(pos, end);
    m_stack.clear();
}

char* XmlParser::parseDocType(XML_NODE* top, char* pos, char* end)
{
    char* word = pos + 1;
    char* wordEnd = word;
    while (wordEnd < end && !IsBlank(*wordEnd) && *wordEnd != '>')
        ++wordEnd;
    if (wordEnd - word != 8 || std::memcmp(word, "!DOCTYPE", 8) != 0)
        return AfterTagEnd(pos, end);

    char* name = SkipBlanks(wordEnd, end);
    char* nameEnd = name;
    while (nameEnd < end && !IsBlank(*nameEnd) && *nameEnd != '>' && *nameEnd != '[')
        ++nameEnd;
    char* quoted[2] = {nullptr, nullptr};
    char* quotedEnd[2] = {nullptr, nullptr};
    int found = 0;
    char* p = nameEnd;
    while (p < end && *p != '>') {
        if (*p != '"') {
            ++p;
            continue;
        }
        char* close = Find(p + 1, end, '"');
        if (found < 2) {
            quoted[found] = p + 1;
            quotedEnd[found++] = close;
        }
        p = close == end ? close : close + 1;
    }
    char* after = p < end ? p + 1 : end;

    // Terminate the strings only now: the name may end on the ">".
    auto* doctype = static_cast<XML_DOCTYPE*>(m_document.Allocate(sizeof(XML_DOCTYPE)));
    *doctype = XML_DOCTYPE{nullptr, nullptr, nullptr};
    if (nameEnd > name) {
        *nameEnd = '\0';
        doctype->name = name;
    }
    for (int i = 0; i < found; ++i) {
        *quotedEnd[i] = '\0';
        (i == 0 ? doctype->first : doctype->second) = quoted[i];
    }
    top->doctype = doctype;
    return after;
}

char* XmlParser::parseStartTag(XML_NODE* element, char* pos, char* end, bool& selfClosing)
{
    selfClosing = false;
    char* name = pos + 1;
    char* p = name;
    while (p < end && !EndsName(*p))
        ++p;
    // Read the byte that ended the name before the NUL replaces it.
    const char terminator = p < end ? *p : '\0';
    *p = '\0';
    element->tag.name = name;
    if (p >= end)
        return p;
    if (terminator == '>')
        return p + 1;
    if (terminator == '/')
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

char* XmlParser::parseAttribute(XML_NODE* element, char* pos, char* end)
{
    char* name = pos;
    char* p = pos;
    while (p < end && !IsBlank(*p) && *p != '=' && *p != '>' && *p != '/')
        ++p;
    char* nameEnd = p;
    p = SkipBlanks(p, end);
    // Only name="value" is an attribute; a bare name, an unquoted or a
    // single-quoted value is stepped over.
    if (p >= end || *p != '=')
        return p;
    if (p + 1 >= end || p[1] != '"') {
        ++p;
        while (p < end && !IsBlank(*p) && *p != '>' && *p != '/')
            ++p;
        return p;
    }
    char* value = p + 2;
    char* close = Find(value, end, '"');
    *nameEnd = '\0';
    const uint32_t length = tag_code_to_tag(value, value, static_cast<uint32_t>(close - value));
    value[length] = '\0';
    m_document.Append(element->attributes, XML_TAG{name, length ? value : nullptr, length, false});
    return close < end ? close + 1 : close;
}

void XmlParser::parseContent(char* pos, char* end)
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
        const char next = pos[1];
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

char* XmlParser::parseText(XML_NODE* element, char* pos, char* end)
{
    char* lt = Find(pos, end, '<');
    const bool closing = lt < end && lt[1] == '/';
    const auto raw = static_cast<uint32_t>(lt - pos);
    const uint32_t length = tag_code_to_tag(pos, pos, raw);
    char* value = pos;
    // The NUL may go on the "<" only when nothing needs that "<" again.
    if (length < raw || closing || lt == end)
        value[length] = '\0';
    else
        value = m_document.CopyString(pos, length);
    element->tag = XML_TAG{element->tag.name, value, length, false};
    return closing ? closeElement(lt, end) : lt;
}

char* XmlParser::parseCData(XML_NODE* element, char* pos, char* end)
{
    char* value = pos + CDATA_IN_LEN;
    char* close = FindText(value, end, CDATA_OUT);
    *close = '\0';
    element->tag = XML_TAG{element->tag.name, value, static_cast<uint32_t>(close - value), true};
    return close < end ? close + CDATA_OUT_LEN : close;
}

char* XmlParser::parseChild(XML_NODE* parent, char* pos, char* end)
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

char* XmlParser::deferChildren(XML_NODE* element, char* pos, char* end)
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
    const char* name = element->tag.name;
    XmlClosingTags& learnt = m_document.ClosingTags();
    char* close = learnt.Find(name);
    if (!close || close < pos || close > end)
        close = FindClosingTag(pos, end, name, std::strlen(name), learnt);
    element->pending = pos;
    element->pendingLength = static_cast<uint32_t>(close - pos);
    if (close >= end)
        return close;
    char* after = AfterTagEnd(close + 2, end);
    *close = '\0'; // the closing tag is consumed: its "<" ends the pending text
    return after;
}

char* XmlParser::closeElement(char* pos, char* end)
{
    // The name in a closing tag is not checked: it closes the innermost element.
    m_stack.pop_back();
    return AfterTagEnd(pos + 2, end);
}

} // namespace UIKit
