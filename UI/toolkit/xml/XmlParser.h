#pragma once
// Parses document text into elements. The text is only read, never
// changed: names and decoded values are copied into the document's arena,
// so a lazy parse touches no byte of the children it keeps pending, and the
// text can be the caller's own buffer.
//
// Element parsing is iterative (an explicit stack of open elements), so
// documents nested ten thousand levels deep or more cost no call stack; in
// lazy mode an element's children are kept as raw text until first needed.
#include "xml/XmlTypes.h"

#include <vector>

namespace UIKit {

class XmlParser {
public:
    XmlParser(XmlDocument& document, bool lazy);

    // Parses the prolog (declaration, DOCTYPE, comments) and the top element
    // of [text, end) into `top`, which takes the top element's name.
    void ParseDocument(XML_NODE* top, const char* text, const char* end);

    // Parses the children kept as raw text by a lazy parse (lazily again).
    void ParsePending(XML_NODE* element);

private:
    const char* parseDocType(XML_NODE* top, const char* pos, const char* end);
    // Reads "<name attributes...>" into the element; sets selfClosing for
    // "<name .../>". Returns the position after the tag.
    const char* parseStartTag(XML_NODE* element, const char* pos, const char* end, bool& selfClosing);
    const char* parseAttribute(XML_NODE* element, const char* pos, const char* end);
    // The content loop: text, CDATA, comments, children and closing tags of
    // the elements on the stack, until the stack empties or the text ends.
    void parseContent(const char* pos, const char* end);
    const char* parseText(XML_NODE* element, const char* pos, const char* end);
    const char* parseCData(XML_NODE* element, const char* pos, const char* end);
    const char* parseChild(XML_NODE* parent, const char* pos, const char* end);
    // Keeps the rest of the element's content as pending text and returns
    // the position after its closing tag.
    const char* deferChildren(XML_NODE* element, const char* pos, const char* end);
    const char* closeElement(const char* pos, const char* end);

    XmlDocument& m_document;
    std::vector<XML_NODE*>& m_stack;
    const bool m_lazy;
    XML_NODE* m_expanding = nullptr; // the element whose pending text is parsed
};

} // namespace UIKit
