#include "Toolkit/LineReader.h"

#include <algorithm>

namespace Toolkit {

LineReader::LineReader(Source source, size_t bufferSize)
    : m_source(std::move(source)), m_buffer(std::max<size_t>(bufferSize, 16))
{
}

void LineReader::Restart()
{
    m_pos = m_end = 0;
    m_first = true;
    m_ended = m_failed = false;
}

bool LineReader::fill()
{
    if (m_ended || m_failed)
        return false;
    const long long n = m_source(m_buffer.data(), m_buffer.size());
    if (n < 0)
        m_failed = true;
    else if (n == 0)
        m_ended = true;
    m_pos = 0;
    m_end = n > 0 ? size_t(n) : 0;
    return n > 0;
}

bool LineReader::peekIs(char c)
{
    if (m_pos == m_end && !fill())
        return false;
    return m_buffer[m_pos] == c;
}

bool LineReader::Next(std::string& line)
{
    line.clear();
    bool any = false;
    bool complete = false;
    for (;;) {
        if (m_pos == m_end && !fill())
            break;
        const auto begin = m_buffer.begin() + std::ptrdiff_t(m_pos);
        const auto end = m_buffer.begin() + std::ptrdiff_t(m_end);
        const auto stop = std::find_if(begin, end, [](char c) { return c == '\n' || c == '\r'; });
        line.append(begin, stop);
        any = true;
        m_pos = size_t(stop - m_buffer.begin());
        if (stop == end)
            continue;
        complete = true;
        const char terminator = *stop;
        ++m_pos;
        if (terminator == '\r' && peekIs('\n'))
            ++m_pos;
        break;
    }
    if (!any || (m_failed && !complete))
        return false;
    if (m_first && line.compare(0, 3, "\xEF\xBB\xBF") == 0)
        line.erase(0, 3);
    m_first = false;
    return true;
}

} // namespace Toolkit
