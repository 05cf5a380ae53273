#include "xml/XmlDom.h"

#include "xml/XmlDocument.h"
#include "xml/XmlParser.h"

#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace UIKit {
namespace {

inline char lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(const char* name, const char* wanted)
{
    for (; *name && *wanted; ++name, ++wanted)
        if (lower(*name) != lower(*wanted))
            return false;
    return *name == *wanted;
}

// Whether the element's name is the first `length` bytes of the path.
bool nameIs(const XML_NODE* element, const char* segment, size_t length)
{
    const char* name = element->tag.name;
    for (size_t i = 0; i < length; ++i)
        if (name[i] == '\0' || lower(name[i]) != lower(segment[i]))
            return false;
    return name[length] == '\0';
}

// The first name of a path and whether more follow; a null path matches all.
struct Segment {
    const char* text;
    size_t length;
    const char* rest; // after the "/", or null for the last name

    explicit Segment(const char* path)
        : text(path), length(0), rest(nullptr)
    {
        if (!path)
            return;
        const char* slash = std::strchr(path, '/');
        length = slash ? static_cast<size_t>(slash - path) : std::strlen(path);
        rest = slash ? slash + 1 : nullptr;
    }
    bool Matches(const XML_NODE* element) const { return !text || nameIs(element, text, length); }
    size_t Depth() const
    {
        if (!rest)
            return 0;
        size_t depth = 1;
        for (const char* p = rest; *p; ++p)
            depth += *p == '/';
        return depth;
    }
};

void parsePending(XML_NODE* element)
{
    if (element->pending)
        XmlParser(*element->document, true).ParsePending(element);
}

XML_NODE* findFirst(XML_NODE* element, const char* path);

// The first match of the path among the children from index `from` on,
// descending into each child that matches the first name.
XML_NODE* findFrom(XML_NODE* element, const Segment& segment, uint32_t from)
{
    for (uint32_t i = from; i < element->children.count; ++i) {
        XML_NODE* child = element->children.items[i];
        if (!segment.Matches(child))
            continue;
        if (!segment.rest)
            return child;
        if (XML_NODE* found = findFirst(child, segment.rest))
            return found;
    }
    return nullptr;
}

XML_NODE* findFirst(XML_NODE* element, const char* path)
{
    parsePending(element);
    return findFrom(element, Segment(path), 0);
}

XML_NODE* findNext(XML_NODE* element, const char* path, XML_NODE* previous)
{
    parsePending(element);
    const Segment segment(path);
    // The child of `element` on the way down to `previous`.
    XML_NODE* ancestor = previous;
    for (size_t depth = segment.Depth(); ancestor && depth > 0; --depth)
        ancestor = ancestor->parent;
    if (!ancestor || ancestor->parent != element || !segment.Matches(ancestor) ||
        element->children.At(ancestor->index) == nullptr || element->children.items[ancestor->index] != ancestor)
        return nullptr;
    if (segment.rest)
        if (XML_NODE* found = findNext(ancestor, segment.rest, previous))
            return found;
    return findFrom(element, segment, ancestor->index + 1);
}

void detach(XML_NODE* element)
{
    XML_NODE* parent = element->parent;
    if (!parent || parent->children.At(element->index) == nullptr)
        return;
    auto& children = parent->children;
    for (uint32_t i = element->index; i + 1 < children.count; ++i) {
        children.items[i] = children.items[i + 1];
        children.items[i]->index = i;
    }
    --children.count;
    element->parent = nullptr;
}

uint32_t setDocument(XML_NODE* element, const char* text, size_t length, XML_DOCTYPE** doctype, bool lazy,
                     bool copy)
{
    if (!element || !text)
        return XML_NULL_ARGUMENT;
    if (doctype)
        *doctype = nullptr;
    // Lengths are kept in 32 bits; an inner element has no memory of its own.
    if (!element->ownsDocument || length >= std::numeric_limits<uint32_t>::max())
        return XML_FAILURE;
    try {
        XmlDocument& document = *element->document;
        document.Reset();
        std::memset(static_cast<void*>(element), 0, sizeof(XML_NODE));
        element->document = &document;
        element->ownsDocument = true;
        element->tag.name = document.CopyString("root", 4);
        const char* source = copy ? document.SetText(text, length) : text;
        document.SetSource(source, length);
        XmlParser(document, lazy).ParseDocument(element, source, source + length);
        if (doctype)
            *doctype = element->doctype;
        return XML_OK;
    } catch (const std::bad_alloc&) {
        return XML_FAILURE;
    }
}

} // namespace

uint32_t node_create(XML_NODE** element, const char* name, const char* nameSpace)
{
    if (!element || !name)
        return XML_NULL_ARGUMENT;
    *element = nullptr;
    try {
        auto document = std::make_unique<XmlDocument>();
        auto node = std::make_unique<XML_NODE>();
        std::memset(static_cast<void*>(node.get()), 0, sizeof(XML_NODE));
        node->document = document.get();
        node->ownsDocument = true;
        node->tag.name = document->CopyString(name, std::strlen(name));
        if (nameSpace) {
            const auto length = static_cast<uint32_t>(std::strlen(nameSpace));
            document->Append(node->attributes, XML_TAG{document->CopyString("xmlns", 5),
                                                       document->CopyString(nameSpace, length), length, false});
        }
        document.release();
        *element = node.release();
        return XML_OK;
    } catch (const std::bad_alloc&) {
        return XML_FAILURE;
    }
}

uint32_t node_set_doc(XML_NODE* element, const char* text, XML_DOCTYPE** doctype, bool lazy)
{
    if (!element || !text)
        return XML_NULL_ARGUMENT;
    return node_set_doc_n(element, text, std::strlen(text), doctype, lazy);
}

uint32_t node_set_doc_n(XML_NODE* element, const char* text, size_t length, XML_DOCTYPE** doctype, bool lazy)
{
    return setDocument(element, text, length, doctype, lazy, true);
}

uint32_t node_set_doc_borrowed(XML_NODE* element, const char* text, size_t length, XML_DOCTYPE** doctype,
                               bool lazy)
{
    return setDocument(element, text, length, doctype, lazy, false);
}

uint32_t node_set_doc_name(XML_NODE* element, const char* name)
{
    if (!element)
        return XML_NULL_ARGUMENT;
    if (!element->ownsDocument)
        return XML_FAILURE;
    try {
        element->document->SetName(name);
        return XML_OK;
    } catch (const std::bad_alloc&) {
        return XML_FAILURE;
    }
}

uint32_t node_set_error_handler(XML_NODE* element, XML_ERROR_HANDLER handler, void* context)
{
    if (!element)
        return XML_NULL_ARGUMENT;
    if (!element->ownsDocument)
        return XML_FAILURE;
    element->document->SetErrorHandler(handler, context);
    return XML_OK;
}

const XML_ERROR* node_last_error(const XML_NODE* element)
{
    return element ? element->document->LastError() : nullptr;
}

XML_NODE* node_find_first(XML_NODE* element, const char* path)
{
    if (!element)
        return nullptr;
    try {
        return findFirst(element, path);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

XML_NODE* node_find_next(XML_NODE* element, const char* path, XML_NODE* previous)
{
    if (!element || !previous)
        return nullptr;
    try {
        return findNext(element, path, previous);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

const char* node_attribute(const XML_NODE* element, const char* name)
{
    if (!element || !name)
        return nullptr;
    for (uint32_t i = 0; i < element->attributes.count; ++i)
        if (sameName(element->attributes.items[i].name, name))
            return element->attributes.items[i].value;
    return nullptr;
}

const char* node_value(XML_NODE* element)
{
    if (!element)
        return nullptr;
    // Text after the first child is kept with the pending children; parse
    // them so that the value is the same as in an eager parse.
    try {
        parsePending(element);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return element->tag.value;
}

const char* node_name(const XML_NODE* element)
{
    return element ? element->tag.name : nullptr;
}

uint32_t node_line(const XML_NODE* element)
{
    if (!element || !element->source)
        return 0;
    try {
        return element->document->LineOf(element->source - 1); // the "<"
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

uint32_t node_destroy(XML_NODE* element)
{
    if (!element)
        return XML_NULL_ARGUMENT;
    if (!element->ownsDocument) {
        detach(element);
        return XML_OK;
    }
    delete element->document;
    delete element;
    return XML_OK;
}

} // namespace UIKit
