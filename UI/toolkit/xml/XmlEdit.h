#pragma once
#include "module/Export.h"
// Building a tree in memory and searching it by content: the operations the
// skin tools use to change a document before writing it back with
// node_write. New elements and strings live in the memory of the tree they
// join (see XmlDom.h); their line is 0. Each operation first parses the
// pending children of the element it changes, so that document order holds.
#include "xml/XmlTypes.h"

namespace UIKit {

// A new element named `name`, added after the last child (append) or
// before the first (prepend) of `parent`; `child` receives it when not null.
UIKIT_API uint32_t node_append_child(XML_NODE* parent, const char* name, XML_NODE** child);
UIKIT_API uint32_t node_prepend_child(XML_NODE* parent, const char* name, XML_NODE** child);

// Sets the element's text (copied; written as a CDATA section when `cdata`
// is set); a null or empty value removes it.
UIKIT_API uint32_t node_set_value(XML_NODE* element, const char* value, bool cdata);
// Sets the value of the first attribute of that name (case ignored), or adds
// the attribute last; a null value removes the attribute.
UIKIT_API uint32_t node_set_attribute(XML_NODE* element, const char* name, const char* value);

// A deep copy of `source` (from this tree or another) added as the last
// child of `parent`; `copy` receives it when not null. Copying an element
// into its own subtree copies the subtree as it was before the call.
UIKIT_API uint32_t node_copy(XML_NODE* parent, XML_NODE* source, XML_NODE** copy);

// The next child matching `path` after `previous` (null: the first) whose
// attribute `name` has exactly `value` (bytes compared, case kept), or
// whose text is exactly `value`; null when none.
UIKIT_API XML_NODE* node_find_by_attribute(XML_NODE* element, const char* path, const char* name, const char* value,
                                 XML_NODE* previous);
UIKIT_API XML_NODE* node_find_by_value(XML_NODE* element, const char* path, const char* value, XML_NODE* previous);

} // namespace UIKit
