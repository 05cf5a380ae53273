#pragma once
#include "module/Export.h"
// Writes a tree back to text that the reader parses into the same tree:
// names as stored, attribute values and text with the five entity
// characters encoded, CDATA values as CDATA sections (as text when they hold
// the section's end marker, which a section cannot), the DOCTYPE line of a
// top element that has one. Children go one per line, indented by two
// spaces a level; an element's text follows its children, right before its
// closing tag, since the reader keeps trailing but not leading blanks of a
// text (leading blanks of a text are therefore not kept).
#include "xml/XmlTypes.h"

#include <string>

namespace UIKit {

// Appends the element and its subtree to `text`, parsing pending children
// first. Iterative, so deep trees cost no call stack.
UIKIT_API uint32_t node_write(XML_NODE* element, std::string& text);

} // namespace UIKit
