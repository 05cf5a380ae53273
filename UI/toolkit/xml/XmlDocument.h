#pragma once
#include "module/Export.h"
// The memory of one parsed document: a private copy of its text (unless the
// caller lends it) and an arena from which every element, string, attribute
// array and child array of the tree is allocated. Everything is released together when the
// document is destroyed; Reset() forgets the tree but keeps the memory, so
// parsing again into the same top element allocates nothing once warm.
#include "xml/XmlClosingTags.h"
#include "xml/XmlTypes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace UIKit {

class UIKIT_API XmlDocument {
public:
    XmlDocument() = default;
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    // Forgets every allocation and the text, keeping the memory for reuse.
    void Reset();

    // Replaces the text with a copy of `length` bytes followed by a NUL and
    // returns the copy.
    const char* SetText(const char* text, size_t length);
    // Records where the parsed text lies (the copy, or the caller's buffer),
    // so that positions in it can be turned into line numbers.
    void SetSource(const char* text, size_t length);
    // The 1-based line of `pos` in the parsed text, or 0 when `pos` is not in
    // it. The first call after a parse indexes the line starts of the whole
    // text; later calls only search that index.
    uint32_t LineOf(const char* pos);

    // The name that error records carry, and who hears of them; both are
    // kept across parses.
    void SetName(const char* name) { m_name = name ? name : ""; }
    void SetErrorHandler(XML_ERROR_HANDLER handler, void* context);
    // Records a problem found at `pos` of the parsed text and passes it to
    // the handler: once per position, so that a problem met again (by a
    // later parse of pending children, or by an enclosing construct that
    // ends at the same place) is told once, and at most kMaxErrors times.
    void ReportError(const char* pos, std::string cause);
    // The latest problem recorded since the text was set, or null.
    const XML_ERROR* LastError() const { return m_errorPositions.empty() ? nullptr : &m_lastError; }
    static constexpr size_t kMaxErrors = 50;

    // Raw memory, aligned for any record; throws std::bad_alloc.
    void* Allocate(size_t bytes);
    // A zeroed element of this document.
    XML_NODE* NewNode(XML_NODE* parent);
    // A NUL-terminated copy of `length` bytes.
    char* CopyString(const char* text, size_t length);

    // Appends to an array of this document, doubling its room when full.
    template <class T>
    void Append(XML_ARRAY<T>& array, const T& item)
    {
        if (array.count == array.capacity)
            grow(reinterpret_cast<void*&>(array.items), array.capacity, sizeof(T));
        array.items[array.count++] = item;
    }

    // Working stack of the iterative element parse, kept to reuse its room.
    std::vector<XML_NODE*>& ParseStack() { return m_stack; }
    XmlClosingTags& ClosingTags() { return m_closingTags; }

private:
    struct Chunk {
        std::unique_ptr<char[]> data;
        size_t size;
    };

    void grow(void*& items, uint32_t& capacity, size_t itemSize);
    void indexLines();
    void nextChunk(size_t bytes);

    std::unique_ptr<char[]> m_text;
    size_t m_textCapacity = 0;
    std::vector<Chunk> m_chunks;
    size_t m_current = 0;      // chunk being filled
    size_t m_used = 0;         // bytes used in it
    char* m_last = nullptr;    // start of the latest allocation, which may grow in place
    std::vector<XML_NODE*> m_stack;
    XmlClosingTags m_closingTags;
    const char* m_source = nullptr; // the parsed text, copied or borrowed
    size_t m_sourceLength = 0;
    // Offsets at which the second and later lines start; filled on demand.
    std::vector<uint32_t> m_lineStarts;
    bool m_linesIndexed = false;
    std::string m_name;
    XML_ERROR_HANDLER m_errorHandler = nullptr;
    void* m_errorContext = nullptr;
    std::vector<size_t> m_errorPositions; // offsets already reported
    std::string m_lastCause;
    XML_ERROR m_lastError{};
};

} // namespace UIKit
