// libFuzzer entry for the document layer: parses the input lazily and
// eagerly and reads every element, attribute and text through the same
// functions the loader uses. Sanitizers report any read or write outside
// the document's memory.
#include "xml/XmlDom.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using namespace UIKit;

namespace {

// Touches every byte of a returned string so that a string left without its
// NUL or pointing outside the buffer is caught.
size_t touch(const char* text)
{
    size_t sum = 0;
    for (; text && *text; ++text)
        sum += static_cast<unsigned char>(*text);
    return sum;
}

// Walks the tree without recursion: inputs may nest thousands of levels.
size_t walk(XML_NODE* top)
{
    size_t sum = 0;
    std::vector<XML_NODE*> stack{top};
    while (!stack.empty()) {
        XML_NODE* element = stack.back();
        stack.pop_back();
        sum += touch(node_name(element)) + touch(node_value(element));
        for (uint32_t i = 0; i < element->attributes.count; ++i)
            sum += touch(node_attribute(element, element->attributes.items[i].name));
        sum += touch(node_attribute(element, "CLASS"));
        for (XML_NODE* child = node_find_first(element, nullptr); child; child = node_find_next(element, nullptr, child))
            stack.push_back(child);
    }
    return sum;
}

// Path searches, which take another way through the children.
size_t searchPaths(XML_NODE* top)
{
    size_t sum = 0;
    for (const char* path : {"Control", "control/label", "a/b/c", "Control/Control"}) {
        for (XML_NODE* found = node_find_first(top, path); found; found = node_find_next(top, path, found))
            sum += touch(node_value(found));
    }
    return sum;
}

volatile size_t g_sink;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const bool lazy : {true, false}) {
        XML_NODE* top = nullptr;
        if (node_create(&top, "root", "uri") != XML_OK)
            return 0;
        XML_DOCTYPE* doctype = nullptr;
        node_set_doc(top, text.c_str(), &doctype, lazy);
        if (doctype)
            g_sink = touch(doctype->name) + touch(doctype->first) + touch(doctype->second);
        // Search before walking in one mode and after in the other, so that
        // both meet pending children.
        g_sink = lazy ? searchPaths(top) + walk(top) : walk(top) + searchPaths(top);
        // The same bytes with their exact length, NUL bytes inside included:
        // a copy, then libFuzzer's own buffer, where reading one byte past
        // the end is caught.
        node_set_doc_n(top, text.data(), text.size(), nullptr, lazy);
        g_sink = walk(top);
        node_set_doc_borrowed(top, reinterpret_cast<const char*>(data), size, nullptr, lazy);
        g_sink = walk(top) + searchPaths(top);
        node_destroy(top);
    }
    return 0;
}
