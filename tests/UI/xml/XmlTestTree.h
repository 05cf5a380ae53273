#pragma once
// Helpers of the XML tests: parse a text into a top element that frees
// itself, and print a tree in one line to compare trees in assertions.
#include "xml/XmlDom.h"

#include <memory>
#include <string>
#include <vector>

namespace xmltest {

struct NodeDeleter {
    void operator()(UIKit::XML_NODE* node) const { UIKit::node_destroy(node); }
};
using Tree = std::unique_ptr<UIKit::XML_NODE, NodeDeleter>;

// The document (all of its bytes) parsed into a fresh top element.
inline Tree Parse(const std::string& text, bool lazy)
{
    UIKit::XML_NODE* top = nullptr;
    UIKit::node_create(&top, "root", "uri");
    Tree tree(top);
    UIKit::node_set_doc_n(top, text.data(), text.size(), nullptr, lazy);
    return tree;
}

// The children of the element, read through node_find_first/next (so lazy
// children are parsed).
inline std::vector<UIKit::XML_NODE*> Children(UIKit::XML_NODE* element)
{
    std::vector<UIKit::XML_NODE*> children;
    for (UIKit::XML_NODE* c = node_find_first(element, nullptr); c; c = node_find_next(element, nullptr, c))
        children.push_back(c);
    return children;
}

// The tree as name[attr=value,...]"text"{children...}. Iterative, so deep
// trees are fine.
inline std::string Dump(UIKit::XML_NODE* top)
{
    std::string out;
    // Each entry: the element, or null to close the braces of a parent.
    std::vector<UIKit::XML_NODE*> stack{top};
    while (!stack.empty()) {
        UIKit::XML_NODE* element = stack.back();
        stack.pop_back();
        if (!element) {
            out += '}';
            continue;
        }
        out += std::string(node_name(element)) + '[';
        for (uint32_t i = 0; i < element->attributes.count; ++i) {
            const UIKit::XML_TAG& a = element->attributes.items[i];
            out += (i ? "," : "") + std::string(a.name) + "=" + (a.value ? a.value : "~");
        }
        out += ']';
        if (const char* value = node_value(element))
            out += (element->tag.cdata ? "!\"" : "\"") + std::string(value) + "\"";
        const auto children = Children(element);
        if (children.empty())
            continue;
        out += '{';
        stack.push_back(nullptr);
        stack.insert(stack.end(), children.rbegin(), children.rend());
    }
    return out;
}

// Visits every element, its text included, without recursion and returns
// how many there were.
inline size_t CountElements(UIKit::XML_NODE* top)
{
    size_t count = 0;
    for (std::vector<UIKit::XML_NODE*> stack{top}; !stack.empty(); ++count) {
        UIKit::XML_NODE* element = stack.back();
        stack.pop_back();
        node_value(element);
        const auto children = Children(element);
        stack.insert(stack.end(), children.begin(), children.end());
    }
    return count;
}

} // namespace xmltest
