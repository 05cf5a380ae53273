#pragma once
#include "module/Export.h"
// The records of the document layer: elements, tag records, growable arrays
// and result codes. They are plain structs so that a whole tree lives in the
// memory of its XmlDocument and is freed in one step. This layer depends on
// nothing but the C++ library, so the fuzz target can build it alone.
#include <cstdint>

namespace UIKit {

class XmlDocument;

// Result codes of the document-layer functions; bit 28 set means failure.
enum XmlResult : uint32_t {
    XML_OK = 0,
    XML_FAILURE = 0x10000001,       // memory, or a document that is not accepted
    XML_NULL_ARGUMENT = 0x10000002, // a required argument was null
};

inline bool XML_FAILED(uint32_t result)
{
    return (result & 0x10000000u) != 0;
}

// A name with its value: an attribute, or an element's name and text.
struct UIKIT_API XML_TAG {
    char* name;           // NUL-terminated, in the document's memory
    char* value;          // NUL-terminated, decoded; null when absent or empty
    uint32_t valueLength; // bytes of value, without the NUL
    bool cdata;           // the value came from a CDATA section
};

// The three strings of a <!DOCTYPE name "first" "second"> line; each null
// when the line does not have it.
struct UIKIT_API XML_DOCTYPE {
    char* name;
    char* first;
    char* second;
};

// A counted array that grows when full; its items live in the document's
// memory, so it has no destructor.
template <class T>
struct XML_ARRAY {
    T* items;
    uint32_t count;
    uint32_t capacity;

    // The item at the index, or null past the end.
    T* At(uint32_t index) const { return index < count ? &items[index] : nullptr; }
    bool Empty() const { return count == 0; }
};

// A problem found in a document's text. The reader keeps going after one:
// whatever could be read stays in the tree.
struct UIKIT_API XML_ERROR {
    const char* file;  // the name given to the document, null when none
    uint32_t line;     // 1-based line where it was found, 0 when unknown
    const char* cause; // a short phrase, e.g. "comment opened on line 3 is not closed"
};

// Called once for each problem, as it is found; `context` is the pointer
// given with the handler.
using XML_ERROR_HANDLER = void (*)(const XML_ERROR& error, void* context);

struct UIKIT_API _XML_NODE {
    XML_TAG tag;                      // name and text
    XML_ARRAY<XML_TAG> attributes;    // in document order
    XML_ARRAY<_XML_NODE*> children;   // in document order
    _XML_NODE* parent;                // null for the top element
    XML_DOCTYPE* doctype;             // only on a top element whose document has one
    // Raw text of the children not parsed yet (lazy mode), inside the
    // document's text; null once parsed.
    const char* pending;
    uint32_t pendingLength;
    const char* source;               // where the element's name starts in that text
    uint32_t index;                   // position among the parent's children
    XmlDocument* document;            // the memory this element lives in
    bool ownsDocument;                // true for an element made by node_create
};

using XML_NODE = _XML_NODE;

} // namespace UIKit
