#include "XmlTestTree.h"

#include <utility>
#include <vector>

namespace xmltest {

using namespace UIKit;

Tree Parse(const std::string& text, bool lazy)
{
    XML_NODE* top = nullptr;
    node_create(&top, "root", "uri");
    Tree tree(top);
    node_set_doc(top, text.c_str(), nullptr, lazy);
    return tree;
}

namespace {

void appendElement(std::string& out, XML_NODE* element)
{
    out += node_name(element);
    out += '[';
    for (uint32_t i = 0; i < element->attributes.count; ++i) {
        const XML_TAG& a = element->attributes.items[i];
        out += (i ? "," : "") + std::string(a.name) + "=" + (a.value ? a.value : "~");
    }
    out += ']';
    if (const char* value = node_value(element))
        out += (element->tag.cdata ? "!\"" : "\"") + std::string(value) + "\"";
}

} // namespace

std::string Dump(XML_NODE* top)
{
    std::string out;
    // Each entry: the element, or null to close the braces of a parent.
    std::vector<XML_NODE*> stack{top};
    while (!stack.empty()) {
        XML_NODE* element = stack.back();
        stack.pop_back();
        if (!element) {
            out += '}';
            continue;
        }
        appendElement(out, element);
        std::vector<XML_NODE*> children;
        for (XML_NODE* c = node_find_first(element, nullptr); c; c = node_find_next(element, nullptr, c))
            children.push_back(c);
        if (children.empty())
            continue;
        out += '{';
        stack.push_back(nullptr);
        for (auto it = children.rbegin(); it != children.rend(); ++it)
            stack.push_back(*it);
    }
    return out;
}

size_t CountElements(XML_NODE* top)
{
    size_t count = 0;
    std::vector<XML_NODE*> stack{top};
    while (!stack.empty()) {
        XML_NODE* element = stack.back();
        stack.pop_back();
        ++count;
        node_value(element);
        for (XML_NODE* c = node_find_first(element, nullptr); c; c = node_find_next(element, nullptr, c))
            stack.push_back(c);
    }
    return count;
}

} // namespace xmltest
