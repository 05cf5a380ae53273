#include "xml/XmlDocument.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace UIKit {
namespace {

constexpr size_t kAlignment = alignof(std::max_align_t);
constexpr size_t kFirstChunk = 16 * 1024;

size_t aligned(size_t bytes)
{
    return (bytes + kAlignment - 1) & ~(kAlignment - 1);
}

} // namespace

void XmlDocument::Reset()
{
    m_current = 0;
    m_used = 0;
    m_last = nullptr;
    m_stack.clear();
    m_closingTags.Reset();
    SetSource(nullptr, 0);
}

const char* XmlDocument::SetText(const char* text, size_t length)
{
    if (length + 1 > m_textCapacity) {
        m_text.reset(new char[length + 1]);
        m_textCapacity = length + 1;
    }
    std::memcpy(m_text.get(), text, length);
    m_text[length] = '\0';
    return m_text.get();
}

void XmlDocument::SetSource(const char* text, size_t length)
{
    m_source = text;
    m_sourceLength = length;
    m_lineStarts.clear();
    m_linesIndexed = false;
    m_errorPositions.clear();
}

void XmlDocument::SetErrorHandler(XML_ERROR_HANDLER handler, void* context)
{
    m_errorHandler = handler;
    m_errorContext = context;
}

void XmlDocument::ReportError(const char* pos, std::string cause)
{
    const auto offset = static_cast<size_t>(pos - m_source);
    if (m_errorPositions.size() >= kMaxErrors ||
        std::find(m_errorPositions.begin(), m_errorPositions.end(), offset) != m_errorPositions.end())
        return;
    m_errorPositions.push_back(offset);
    // A problem found at the end of the text belongs to its last line.
    const char* at = offset == m_sourceLength && offset > 0 ? pos - 1 : pos;
    m_lastCause = std::move(cause);
    m_lastError = XML_ERROR{m_name.empty() ? nullptr : m_name.c_str(), LineOf(at), m_lastCause.c_str()};
    if (m_errorHandler)
        m_errorHandler(m_lastError, m_errorContext);
}

uint32_t XmlDocument::LineOf(const char* pos)
{
    // Compared as integers: `pos` may come from another document's text.
    const auto at = reinterpret_cast<std::uintptr_t>(pos);
    const auto begin = reinterpret_cast<std::uintptr_t>(m_source);
    if (!pos || !m_source || at < begin || at - begin >= m_sourceLength)
        return 0;
    if (!m_linesIndexed) {
        indexLines();
        m_linesIndexed = true;
    }
    const auto offset = static_cast<uint32_t>(at - begin);
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    return static_cast<uint32_t>(after - m_lineStarts.begin()) + 1;
}

void XmlDocument::indexLines()
{
    // A line ends with LF, CR LF or a lone CR, as editors count them.
    const char* text = m_source;
    for (size_t i = 0; i < m_sourceLength; ++i) {
        const char c = text[i];
        if (c == '\n' || (c == '\r' && (i + 1 == m_sourceLength || text[i + 1] != '\n')))
            m_lineStarts.push_back(static_cast<uint32_t>(i + 1));
    }
}

void XmlDocument::nextChunk(size_t bytes)
{
    // Chunks left from an earlier parse are reused when they are big enough.
    while (m_current + 1 < m_chunks.size()) {
        ++m_current;
        m_used = 0;
        if (m_chunks[m_current].size >= bytes)
            return;
    }
    const size_t previous = m_chunks.empty() ? 0 : m_chunks.back().size;
    const size_t size = std::max({bytes, kFirstChunk, previous * 2});
    m_chunks.push_back(Chunk{std::unique_ptr<char[]>(new char[size]), size});
    m_current = m_chunks.size() - 1;
    m_used = 0;
}

void* XmlDocument::Allocate(size_t bytes)
{
    bytes = aligned(bytes);
    if (m_chunks.empty() || m_chunks[m_current].size - m_used < bytes)
        nextChunk(bytes);
    char* block = m_chunks[m_current].data.get() + m_used;
    m_used += bytes;
    m_last = block;
    return block;
}

XML_NODE* XmlDocument::NewNode(XML_NODE* parent)
{
    auto* node = static_cast<XML_NODE*>(Allocate(sizeof(XML_NODE)));
    std::memset(static_cast<void*>(node), 0, sizeof(XML_NODE));
    node->parent = parent;
    node->document = this;
    return node;
}

char* XmlDocument::CopyString(const char* text, size_t length)
{
    auto* copy = static_cast<char*>(Allocate(length + 1));
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

void XmlDocument::grow(void*& items, uint32_t& capacity, size_t itemSize)
{
    const uint32_t wanted = capacity ? capacity * 2 : 4;
    const size_t oldBytes = aligned(capacity * itemSize);
    const size_t newBytes = aligned(wanted * itemSize);
    // The latest allocation of the chunk can simply be extended.
    if (items && items == m_last && m_chunks[m_current].size - m_used + oldBytes >= newBytes) {
        m_used += newBytes - oldBytes;
        capacity = wanted;
        return;
    }
    void* block = Allocate(newBytes);
    if (items)
        std::memcpy(block, items, capacity * itemSize);
    items = block;
    capacity = wanted;
}

} // namespace UIKit
