#pragma once
#include "module/Export.h"
// Parses document text into elements. The text is only read, never
// changed: names and decoded values are copied into the document's arena,
// so a lazy parse touches no byte of the children it keeps pending, and the
// text can be the caller's own buffer.
//
// Element parsing is iterative (an explicit stack of open elements), so
// documents nested ten thousand levels deep or more cost no call stack; in
// lazy mode an element's children are kept as raw text until first needed.
//
// Malformed text is read as far as it goes and every problem is reported to
// the document with its position; an element that never closes is parsed
// at once rather than kept pending, so that a lazy and an eager parse find
// the same problems at the same places.
#include "xml/XmlTypes.h"

#include <string>
#include <vector>

namespace UIKit {

class UIKIT_API XmlParser {
public:
    XmlParser(XmlDocument& document, bool lazy);

    // Parses the prolog (declaration, DOCTYPE, comments) and the top element
    // of [text, end) into `top`, which takes the top element's name.
    void ParseDocument(XML_NODE* top, const char* text, const char* end);

    // Elements nested deeper than this below the top element (which is
    // level 1) are skipped whole with one reported problem; far beyond any
    // real skin, it keeps every later walk over the tree shallow.
    static constexpr size_t kMaxDepth = 256;

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
    // Steps over the element whose start tag is at pos, and everything in
    // it, reporting the depth limit once per parse.
    const char* skipTooDeep(const char* pos, const char* end);
    // Closes the innermost open element of the closing tag's name; one that
    // matches no open element is stepped over.
    const char* closeElement(const char* pos, const char* end);
    // After the top element: only blanks, comments and processing
    // instructions may follow. Returns end.
    const char* checkAfterTop(const char* pos, const char* end);
    // Position after the comment at pos, reporting one that never closes.
    const char* skipComment(const char* pos, const char* end);

    void report(const char* pos, const std::string& cause);
    // "<name>", or "<name> opened on line N" when the line is known.
    std::string describe(const XML_NODE* element);
    uint32_t lineOf(const char* pos);

    XmlDocument& m_document;
    std::vector<XML_NODE*>& m_stack;
    bool m_lazy; // cleared once an element is found that never closes
    XML_NODE* m_expanding = nullptr; // the element whose pending text is parsed
    size_t m_outerDepth = 0;         // elements above the bottom of m_stack
    bool m_depthReported = false;
};

} // namespace UIKit
