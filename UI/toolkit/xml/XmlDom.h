#pragma once
#include "module/Export.h"
// The plain-function interface of the document layer: make a top element,
// parse a document into it, search its children, read names, attributes and
// text, and destroy it. Element and attribute names match without regard
// to (ASCII) case; values are returned as stored, NUL-terminated UTF-8.
//
// Ownership: node_create makes a top element that owns the memory of its
// whole tree; node_destroy on it frees everything. Every other element,
// string and array belongs to that tree and lives until it is destroyed or
// parsed again. Trees are not thread-safe: even reading parses pending
// children, so one thread at a time.
#include "xml/XmlTypes.h"

#include <cstddef>

namespace UIKit {

// A new top element named `name`; a non-null `nameSpace` is stored as the
// attribute "xmlns".
UIKIT_API uint32_t node_create(XML_NODE** element, const char* name, const char* nameSpace);

// Empties `element`, names it "root" and parses the NUL-terminated `text`
// into it: it takes the name, attributes and content of the document's top
// element. In lazy mode, children stay unparsed until first searched. When
// `doctype` is not null it receives the document's DOCTYPE record, or null.
// Only top elements (from node_create) can hold a document.
UIKIT_API uint32_t node_set_doc(XML_NODE* element, const char* text, XML_DOCTYPE** doctype, bool lazy);
// The same for `length` bytes (a NUL byte inside only cuts the strings it
// falls in). Both keep a copy of the text for the children left pending.
UIKIT_API uint32_t node_set_doc_n(XML_NODE* element, const char* text, size_t length, XML_DOCTYPE** doctype, bool lazy);
// The same without the copy: the caller keeps the text unchanged and alive
// for as long as the tree, which reads pending children from it.
UIKIT_API uint32_t node_set_doc_borrowed(XML_NODE* element, const char* text, size_t length, XML_DOCTYPE** doctype,
                               bool lazy);

// Problems in the text (a tag, comment, CDATA section or attribute value
// that is not finished, an element that is not closed, a closing tag that
// matches no open element, content after the top element, an attribute not
// written name="value") do not stop a parse: what could be read stays in
// the tree, and each problem is recorded with its line. In lazy mode the
// problems inside pending children are found when they are parsed.
//
// Names the document in its error records (a file name, copied); kept
// across parses. Only top elements hold a document.
UIKIT_API uint32_t node_set_doc_name(XML_NODE* element, const char* name);
// Calls `handler` once for each problem of the document as it is found,
// while parsing and later while pending children are parsed; kept across
// parses. A null handler stops the calls.
UIKIT_API uint32_t node_set_error_handler(XML_NODE* element, XML_ERROR_HANDLER handler, void* context);
// The latest problem found so far in the text of the element's document,
// or null. Valid until the next problem is found or the text is replaced.
UIKIT_API const XML_ERROR* node_last_error(const XML_NODE* element);

// The first child matching `path` ("name" or "name/name/..."; null matches
// every child), or null.
UIKIT_API XML_NODE* node_find_first(XML_NODE* element, const char* path);
// The next match of `path` after `previous`, in document order, or null.
UIKIT_API XML_NODE* node_find_next(XML_NODE* element, const char* path, XML_NODE* previous);

// The value of the first attribute with that name; null when there is none
// or its value is empty.
UIKIT_API const char* node_attribute(const XML_NODE* element, const char* name);
// The element's text or CDATA content, null when none.
UIKIT_API const char* node_value(XML_NODE* element);
UIKIT_API const char* node_name(const XML_NODE* element);
// The 1-based line of the parsed text on which the element's start tag
// begins (lines end with LF, CR LF or CR), counted from the start of the
// document also for children parsed lazily; 0 for an element that was not
// parsed from a text (a top element from node_create before any parse, or
// an element built in memory).
UIKIT_API uint32_t node_line(const XML_NODE* element);

// Frees a top element and its tree. An element inside a tree is taken out of
// its parent; its memory goes with the tree's.
UIKIT_API uint32_t node_destroy(XML_NODE* element);

} // namespace UIKit
