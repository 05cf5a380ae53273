// libFuzzer entry for the document layer: parses the input lazily and
// eagerly and reads every element, attribute, text and line through the
// same functions the loader uses, with an error handler installed. A
// document read without problems is written back and must read as the same
// tree; then the tree is changed and copied. Sanitizers report any read or
// write outside the document's memory.
#include "XmlTestTree.h"
#include "xml/XmlDom.h"
#include "xml/XmlEdit.h"
#include "xml/XmlWriter.h"

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
        sum += touch(node_name(element)) + touch(node_value(element)) + node_line(element);
        for (uint32_t i = 0; i < element->attributes.count; ++i)
            sum += touch(node_attribute(element, element->attributes.items[i].name));
        sum += touch(node_attribute(element, "CLASS"));
        for (XML_NODE* child = node_find_first(element, nullptr); child;
             child = node_find_next(element, nullptr, child))
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

void countError(const XML_ERROR& error, void* count)
{
    ++*static_cast<size_t*>(count);
    g_sink = touch(error.file) + touch(error.cause) + error.line;
}

// Writes the tree, reads the text back in the other mode and compares.
void checkRoundTrip(XML_NODE* top, bool lazy)
{
    std::string text;
    if (node_write(top, text) != XML_OK)
        return;
    XML_NODE* again = nullptr;
    if (node_create(&again, "root", nullptr) != XML_OK)
        return;
    node_set_doc_n(again, text.data(), text.size(), nullptr, !lazy);
    if (xmltest::Dump(again) != xmltest::Dump(top) || node_last_error(again))
        __builtin_trap();
    node_destroy(again);
}

// Builds on the tree: children added at both ends, values and attributes
// set, a subtree copied into itself, and the result written.
void change(XML_NODE* top)
{
    XML_NODE* first = node_find_first(top, nullptr);
    XML_NODE* target = first ? first : top;
    XML_NODE* added = nullptr;
    node_append_child(target, "Added", &added);
    node_prepend_child(target, "First", nullptr);
    node_set_value(added, "a<&>\"'b", false);
    node_set_attribute(target, "class", "x&y");
    node_set_attribute(top, "name", nullptr);
    node_copy(added, top, nullptr);
    g_sink = touch(node_value(node_find_by_attribute(top, nullptr, "class", "x&y", nullptr)));
    std::string text;
    node_write(top, text);
    g_sink = text.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const bool lazy : {true, false}) {
        XML_NODE* top = nullptr;
        if (node_create(&top, "root", "uri") != XML_OK)
            return 0;
        size_t errors = 0;
        node_set_doc_name(top, "fuzz.xml");
        node_set_error_handler(top, &countError, &errors);
        XML_DOCTYPE* doctype = nullptr;
        node_set_doc(top, text.c_str(), &doctype, lazy);
        if (doctype)
            g_sink = touch(doctype->name) + touch(doctype->first) + touch(doctype->second);
        // Search before walking in one mode and after in the other, so that
        // both meet pending children.
        g_sink = lazy ? searchPaths(top) + walk(top) : walk(top) + searchPaths(top);
        if (errors == 0)
            checkRoundTrip(top, lazy);
        change(top);
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
