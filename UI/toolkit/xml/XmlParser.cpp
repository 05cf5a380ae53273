#include "xml/XmlParser.h"

#include "xml/XmlDocument.h"
#include "xml/XmlEntities.h"
#include "xml/XmlScanner.h"

namespace UIKit {

using namespace XmlScanner;

namespace {

// Whether a ">" lies in [from, end), given what AfterTagEnd(from, end) gave.
bool foundTagEnd(const char* from, const char* after, const char* end)
{
    return after < end || (end > from && end[-1] == '>');
}

const char* nameEnd(const char* pos, const char* end)
{
    while (pos < end && !EndsName(*pos))
        ++pos;
    return pos;
}

std::string closingTag(const char* name, const char* nameEnd)
{
    return "closing tag </" + std::string(name, nameEnd) + ">";
}

} // namespace

XmlParser::XmlParser(XmlDocument& document, bool lazy)
    : m_document(document), m_stack(document.ParseStack()), m_lazy(lazy)
{
}

void XmlParser::ParseDocument(XML_NODE* top, const char* pos, const char* end)
{
    // Before the top element: a declaration, DOCTYPE lines and comments;
    // closing tags with nothing open are stepped over.
    pos = Find(pos, end, '<');
    while (pos < end) {
        const char next = At(pos, end, 1);
        if (next == '?') {
            pos = Find(pos + 2, end, '<');
        } else if (StartsWith(pos, end, "<!--")) {
            pos = Find(skipComment(pos, end), end, '<');
        } else if (next == '!') {
            pos = Find(parseDocType(top, pos, end), end, '<');
        } else if (next == '/') {
            report(pos, closingTag(pos + 2, nameEnd(pos + 2, end)) + " matches no open element");
            pos = Find(AfterTagEnd(pos, end), end, '<');
        } else {
            break;
        }
    }
    if (pos >= end) {
        report(end, "no element in the text");
        return;
    }
    bool selfClosing = false;
    pos = parseStartTag(top, pos, end, selfClosing);
    if (selfClosing) {
        checkAfterTop(pos, end);
        return;
    }
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
    m_outerDepth = 0;
    for (const XML_NODE* above = element->parent; above; above = above->parent)
        ++m_outerDepth;
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
    const char* p = nameEnd(name, end);
    element->source = name;
    element->tag.name = m_document.CopyString(name, static_cast<size_t>(p - name));
    if (p == name && p < end)
        report(pos, "element without a name");
    for (;;) {
        p = SkipBlanks(p, end);
        if (p >= end) {
            report(end, "start tag " + describe(element) + " is not finished");
            return p;
        }
        if (*p == '>')
            return p + 1;
        if (*p == '/') {
            selfClosing = true;
            const char* after = AfterTagEnd(p + 1, end);
            if (!foundTagEnd(p + 1, after, end))
                report(end, "start tag " + describe(element) + " is not finished");
            return SkipBlanks(after, end);
        }
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
    // single-quoted value, or one after blanks, is stepped over whole.
    if (p >= end || *p != '=' || At(p, end, 1) != '"') {
        const std::string written(name, nameEnd);
        report(name, "attribute " + written + " is ignored: write " + written + "=\"value\"");
        if (p >= end || *p != '=')
            return p;
        p = SkipBlanks(p + 1, end);
        if (p < end && (*p == '"' || *p == '\'')) {
            const char* close = Find(p + 1, end, *p);
            return close < end ? close + 1 : close;
        }
        while (p < end && !IsBlank(*p) && *p != '>' && *p != '/')
            ++p;
        return p;
    }
    const char* raw = p + 2;
    const char* close = Find(raw, end, '"');
    XML_TAG attribute{m_document.CopyString(name, static_cast<size_t>(nameEnd - name)), nullptr, 0, false};
    if (close == end)
        report(end, "value of attribute " + std::string(attribute.name) + " in start tag " + describe(element) +
                        " is not closed");
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
        if (pos >= end) {
            // Elements left open end with the text; the innermost is told.
            // A lazily kept content ends at its element's closing tag, so only
            // elements opened inside it, or the top element, are left open.
            if (m_stack.back() != m_expanding || !m_expanding->parent)
                report(end, describe(m_stack.back()) + " is not closed");
            return;
        }
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
                pos = skipComment(pos, end); // also right before a closing tag
            else
                pos = AfterTagEnd(pos, end);
        } else if (next == '?') {
            pos = AfterTagEnd(pos, end);
        } else if (m_outerDepth + m_stack.size() >= kMaxDepth) {
            pos = skipTooDeep(pos, end);
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
    if (close == end)
        report(end, "CDATA section opened on line " + std::to_string(lineOf(pos)) + " is not closed");
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

const char* XmlParser::skipTooDeep(const char* pos, const char* end)
{
    if (!m_depthReported) {
        m_depthReported = true;
        report(pos, "elements nested deeper than " + std::to_string(kMaxDepth) + " levels are left out");
    }
    // Only the balance of start and closing tags matters here: nothing of
    // the skipped elements is kept, so names are not compared.
    size_t open = 0;
    while (pos < end) {
        const char next = At(pos, end, 1);
        if (StartsWith(pos, end, "<!--")) {
            pos = SkipComment(pos, end);
        } else if (StartsWith(pos, end, CDATA_IN)) {
            const char* close = FindText(pos + CDATA_IN_LEN, end, CDATA_OUT);
            pos = close < end ? close + CDATA_OUT_LEN : end;
        } else if (next == '/') {
            --open;
            pos = AfterTagEnd(pos, end);
        } else {
            const char* after = AfterTagEnd(pos, end);
            const bool selfClosing = after - pos >= 3 && after[-1] == '>' && after[-2] == '/';
            if (next != '!' && next != '?' && !selfClosing)
                ++open;
            pos = after;
        }
        if (open == 0)
            return pos;
        pos = Find(pos, end, '<');
    }
    return end;
}

const char* XmlParser::deferChildren(XML_NODE* element, const char* pos, const char* end)
{
    // Nothing after the top element is read, so its pending text can run to
    // the end of the document: its closing tag then ends the later parse, as
    // in an eager parse, and no scan is needed.
    if (m_stack.size() == 1 && !m_expanding) {
        m_stack.pop_back();
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
    if (close >= end) {
        // It never closes: the rest of the text is its content, read now.
        m_lazy = false;
        return pos;
    }
    m_stack.pop_back();
    element->pending = pos;
    element->pendingLength = static_cast<uint32_t>(close - pos);
    return AfterTagEnd(close + 2, end);
}

const char* XmlParser::closeElement(const char* pos, const char* end)
{
    const char* name = pos + 2;
    const char* stop = nameEnd(name, end);
    const char* after = AfterTagEnd(stop, end);
    if (!foundTagEnd(stop, after, end))
        report(end, closingTag(name, stop) + " is not finished");
    size_t open = m_stack.size();
    while (open > 0 && !NameAt(name, end, m_stack[open - 1]->tag.name, std::strlen(m_stack[open - 1]->tag.name)))
        --open;
    if (open == 0) {
        report(pos, closingTag(name, stop) + " matches no open element");
        return after;
    }
    // Elements left open inside are closed with it; the innermost is told,
    // at the place where the end of a lazily kept content would tell it.
    if (open < m_stack.size())
        report(pos, describe(m_stack.back()) + " is not closed");
    XML_NODE* closed = m_stack[open - 1];
    m_stack.resize(open - 1);
    return m_stack.empty() && !closed->parent ? checkAfterTop(after, end) : after;
}

const char* XmlParser::checkAfterTop(const char* pos, const char* end)
{
    for (;;) {
        pos = SkipBlanks(pos, end);
        if (pos >= end)
            return end;
        if (StartsWith(pos, end, "<!--")) {
            pos = skipComment(pos, end);
        } else if (StartsWith(pos, end, "<?")) {
            pos = AfterTagEnd(pos, end);
        } else {
            report(pos, "content after the end of the top element");
            return end;
        }
    }
}

const char* XmlParser::skipComment(const char* pos, const char* end)
{
    const char* after = SkipComment(pos, end);
    if (after == end && (end - pos < 7 || std::memcmp(end - 3, "-->", 3) != 0))
        report(end, "comment opened on line " + std::to_string(lineOf(pos)) + " is not closed");
    return after;
}

void XmlParser::report(const char* pos, const std::string& cause)
{
    m_document.ReportError(pos, cause);
}

std::string XmlParser::describe(const XML_NODE* element)
{
    const std::string tag = "<" + std::string(element->tag.name) + ">";
    const uint32_t line = element->source ? lineOf(element->source - 1) : 0;
    return line ? tag + " opened on line " + std::to_string(line) : tag;
}

uint32_t XmlParser::lineOf(const char* pos)
{
    return m_document.LineOf(pos);
}

} // namespace UIKit
