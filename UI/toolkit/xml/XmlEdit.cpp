#include "xml/XmlEdit.h"

#include "xml/XmlDocument.h"
#include "xml/XmlDom.h"
#include "xml/XmlParser.h"
#include "xml/XmlScanner.h"

#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace UIKit {
namespace {

bool sameName(const char* name, const char* wanted)
{
    const size_t length = std::strlen(name);
    return std::strlen(wanted) == length && XmlScanner::NameAt(name, name + length, wanted, length);
}

void parsePending(XML_NODE* element)
{
    if (element->pending)
        XmlParser(*element->document, true).ParsePending(element);
}

char* copyOrNull(XmlDocument& document, const char* text, uint32_t& length)
{
    length = text ? static_cast<uint32_t>(std::strlen(text)) : 0;
    return length ? document.CopyString(text, length) : nullptr;
}

XML_NODE* newChild(XML_NODE* parent, const char* name)
{
    XmlDocument& document = *parent->document;
    XML_NODE* child = document.NewNode(parent);
    child->tag.name = document.CopyString(name, std::strlen(name));
    return child;
}

void renumber(XML_NODE* parent)
{
    for (uint32_t i = 0; i < parent->children.count; ++i)
        parent->children.items[i]->index = i;
}

// One element copied into `document`: name, text and attributes; its
// pending children are parsed first, since they may change its text.
XML_NODE* copyElement(XmlDocument& document, XML_NODE* source, XML_NODE* parent)
{
    parsePending(source);
    XML_NODE* copy = document.NewNode(parent);
    copy->tag = source->tag;
    copy->tag.name = document.CopyString(source->tag.name, std::strlen(source->tag.name));
    if (source->tag.value)
        copy->tag.value = document.CopyString(source->tag.value, source->tag.valueLength);
    for (uint32_t i = 0; i < source->attributes.count; ++i) {
        XML_TAG attribute = source->attributes.items[i];
        attribute.name = document.CopyString(attribute.name, std::strlen(attribute.name));
        if (attribute.value)
            attribute.value = document.CopyString(attribute.value, attribute.valueLength);
        document.Append(copy->attributes, attribute);
    }
    return copy;
}

template <class Function>
uint32_t guarded(Function function)
{
    try {
        return function();
    } catch (const std::bad_alloc&) {
        return XML_FAILURE;
    }
}

template <class Matches>
XML_NODE* findMatching(XML_NODE* element, const char* path, XML_NODE* previous, Matches matches)
{
    if (!element)
        return nullptr;
    XML_NODE* found = previous ? node_find_next(element, path, previous) : node_find_first(element, path);
    while (found && !matches(found))
        found = node_find_next(element, path, found);
    return found;
}

bool equalText(const char* text, const char* value)
{
    return text && value && std::strcmp(text, value) == 0;
}

uint32_t addChild(XML_NODE* parent, const char* name, XML_NODE** child, bool first)
{
    if (!parent || !name)
        return XML_NULL_ARGUMENT;
    return guarded([&] {
        parsePending(parent);
        XML_NODE* added = newChild(parent, name);
        auto& children = parent->children;
        parent->document->Append(children, added);
        added->index = children.count - 1;
        if (first) {
            std::memmove(children.items + 1, children.items, (children.count - 1) * sizeof(XML_NODE*));
            children.items[0] = added;
            renumber(parent);
        }
        if (child)
            *child = added;
        return XML_OK;
    });
}

} // namespace

uint32_t node_append_child(XML_NODE* parent, const char* name, XML_NODE** child)
{
    return addChild(parent, name, child, false);
}

uint32_t node_prepend_child(XML_NODE* parent, const char* name, XML_NODE** child)
{
    return addChild(parent, name, child, true);
}

uint32_t node_set_value(XML_NODE* element, const char* value, bool cdata)
{
    if (!element)
        return XML_NULL_ARGUMENT;
    return guarded([&] {
        // Text read later from pending content would replace this one.
        parsePending(element);
        XML_TAG& tag = element->tag;
        tag.value = copyOrNull(*element->document, value, tag.valueLength);
        tag.cdata = tag.value && cdata;
        return XML_OK;
    });
}

uint32_t node_set_attribute(XML_NODE* element, const char* name, const char* value)
{
    if (!element || !name)
        return XML_NULL_ARGUMENT;
    return guarded([&] {
        auto& attributes = element->attributes;
        uint32_t i = 0;
        while (i < attributes.count && !sameName(attributes.items[i].name, name))
            ++i;
        if (!value) {
            if (i < attributes.count) {
                std::memmove(attributes.items + i, attributes.items + i + 1,
                             (attributes.count - i - 1) * sizeof(XML_TAG));
                --attributes.count;
            }
            return XML_OK;
        }
        XmlDocument& document = *element->document;
        if (i == attributes.count)
            document.Append(attributes, XML_TAG{document.CopyString(name, std::strlen(name)), nullptr, 0, false});
        XML_TAG& attribute = attributes.items[i];
        attribute.value = copyOrNull(document, value, attribute.valueLength);
        return XML_OK;
    });
}

uint32_t node_copy(XML_NODE* parent, XML_NODE* source, XML_NODE** copy)
{
    if (!parent || !source)
        return XML_NULL_ARGUMENT;
    return guarded([&] {
        parsePending(parent);
        XmlDocument& document = *parent->document;
        // The whole copy is built before it joins `parent`, so copying an
        // element into its own subtree does not copy the copy.
        XML_NODE* top = copyElement(document, source, parent);
        std::vector<std::pair<XML_NODE*, XML_NODE*>> stack{{source, top}};
        while (!stack.empty()) {
            auto [from, to] = stack.back();
            stack.pop_back();
            for (uint32_t i = 0; i < from->children.count; ++i) {
                XML_NODE* child = copyElement(document, from->children.items[i], to);
                child->index = i;
                document.Append(to->children, child);
                stack.emplace_back(from->children.items[i], child);
            }
        }
        top->index = parent->children.count;
        document.Append(parent->children, top);
        if (copy)
            *copy = top;
        return XML_OK;
    });
}

XML_NODE* node_find_by_attribute(XML_NODE* element, const char* path, const char* name, const char* value,
                                 XML_NODE* previous)
{
    if (!name || !value)
        return nullptr;
    return findMatching(element, path, previous,
                        [&](XML_NODE* found) { return equalText(node_attribute(found, name), value); });
}

XML_NODE* node_find_by_value(XML_NODE* element, const char* path, const char* value, XML_NODE* previous)
{
    if (!value)
        return nullptr;
    return findMatching(element, path, previous, [&](XML_NODE* found) { return equalText(node_value(found), value); });
}

} // namespace UIKit
