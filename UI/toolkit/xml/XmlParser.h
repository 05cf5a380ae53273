#pragma once
// Parses document text into elements, in place: names and values are
// NUL-terminated inside the document's buffer and decoded there, so a parse
// allocates only element records and arrays.
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
    void ParseDocument(XML_NODE* top, char* text, char* end);

    // Parses the children kept as raw text by a lazy parse (lazily again).
    void ParsePending(XML_NODE* element);

private:
    char* parseDocType(XML_NODE* top, char* pos, char* end);
    // Reads "<name attributes...>" into the element; sets selfClosing for
    // "<name .../>". Returns the position after the tag.
    char* parseStartTag(XML_NODE* element, char* pos, char* end, bool& selfClosing);
    char* parseAttribute(XML_NODE* element, char* pos, char* end);
    // The content loop: text, CDATA, comments, children and closing tags of
    // the elements on the stack, until the stack empties or the text ends.
    void parseContent(char* pos, char* end);
    char* parseText(XML_NODE* element, char* pos, char* end);
    char* parseCData(XML_NODE* element, char* pos, char* end);
    char* parseChild(XML_NODE* parent, char* pos, char* end);
    // Keeps the rest of the element's content as pending text and returns
    // the position after its closing tag.
    char* deferChildren(XML_NODE* element, char* pos, char* end);
    char* closeElement(char* pos, char* end);

    XmlDocument& m_document;
    std::vector<XML_NODE*>& m_stack;
    const bool m_lazy;
    XML_NODE* m_expanding = nullptr; // the element whose pending text is parsed
};

} // namespace UIKit
