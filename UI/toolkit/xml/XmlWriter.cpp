#include "xml/XmlWriter.h"

#include "xml/XmlDom.h"
#include "xml/XmlEntities.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace UIKit {
namespace {

void writeDocType(std::string& out, const XML_DOCTYPE& doctype)
{
    out += "<!DOCTYPE";
    if (doctype.name)
        out.append(" ").append(doctype.name);
    for (const char* text : {doctype.first, doctype.second})
        if (text)
            out.append(" \"").append(text).append("\"");
    out += ">\n";
}

void writeValue(std::string& out, const XML_TAG& tag)
{
    if (!tag.value)
        return;
    // A section cannot hold its own end marker: such a value goes as text.
    const char* value = tag.value;
    const char* end = value + tag.valueLength;
    if (tag.cdata && std::search(value, end, CDATA_OUT, CDATA_OUT + CDATA_OUT_LEN) == end)
        out.append(CDATA_IN).append(value, end).append(CDATA_OUT);
    else
        tag_to_tag_code(out, tag.value, tag.valueLength);
}

void writeStartTag(std::string& out, const XML_NODE* element)
{
    out.append("<").append(element->tag.name);
    for (uint32_t i = 0; i < element->attributes.count; ++i) {
        const XML_TAG& attribute = element->attributes.items[i];
        out.append(" ").append(attribute.name).append("=\"");
        if (attribute.value)
            tag_to_tag_code(out, attribute.value, attribute.valueLength);
        out += '"';
    }
}

} // namespace

uint32_t node_write(XML_NODE* element, std::string& text)
{
    if (!element)
        return XML_NULL_ARGUMENT;
    try {
        if (!element->parent && element->doctype)
            writeDocType(text, *element->doctype);
        // Each entry is an element to open, or one whose children are written
        // and that is closed now; the depth gives the indentation.
        struct Entry {
            XML_NODE* element;
            uint32_t depth;
            bool close;
        };
        std::vector<Entry> stack{{element, 0, false}};
        while (!stack.empty()) {
            const Entry entry = stack.back();
            stack.pop_back();
            XML_NODE* e = entry.element;
            if (entry.close) {
                text.append(2 * entry.depth, ' ');
                writeValue(text, e->tag);
                text.append("</").append(e->tag.name).append(">\n");
                continue;
            }
            text.append(2 * entry.depth, ' ');
            writeStartTag(text, e);
            node_value(e); // parses pending children
            if (e->children.Empty()) {
                if (!e->tag.value) {
                    text += "/>\n";
                } else {
                    text += '>';
                    writeValue(text, e->tag);
                    text.append("</").append(e->tag.name).append(">\n");
                }
                continue;
            }
            text += ">\n";
            stack.push_back({e, entry.depth, true});
            for (uint32_t i = e->children.count; i > 0; --i)
                stack.push_back({e->children.items[i - 1], entry.depth + 1, false});
        }
        return XML_OK;
    } catch (const std::bad_alloc&) {
        return XML_FAILURE;
    }
}

} // namespace UIKit
