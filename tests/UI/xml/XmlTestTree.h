#pragma once
// Helpers of the XML tests: parse a text into a top element that frees
// itself, and print a tree in one line to compare trees in assertions.
#include "xml/XmlDom.h"

#include <memory>
#include <string>

namespace xmltest {

struct NodeDeleter {
    void operator()(UIKit::XML_NODE* node) const { UIKit::node_destroy(node); }
};
using Tree = std::unique_ptr<UIKit::XML_NODE, NodeDeleter>;

// The document parsed into a fresh top element.
Tree Parse(const std::string& text, bool lazy);

// The tree as name[attr=value,...]"text"{children...}, reading every child
// through node_find_first/next (so lazy children are parsed). Iterative, so
// deep trees are fine.
std::string Dump(UIKit::XML_NODE* top);

// Visits every element without recursion and returns how many there were.
size_t CountElements(UIKit::XML_NODE* top);

} // namespace xmltest
