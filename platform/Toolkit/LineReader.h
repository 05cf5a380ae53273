#pragma once
// Splits a byte source into lines, for TextFile and ZipInputStream.
// A line ends at LF, CR LF or a lone CR; the terminator is not part of the
// line, and a last line without one still counts. A UTF-8 byte-order mark
// at the start of the first line is dropped.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Toolkit {

class LineReader {
public:
    // Fills the buffer; returns the bytes read, 0 at the end, <0 on an error.
    using Source = std::function<long long(char* buffer, size_t size)>;

    explicit LineReader(Source source, size_t bufferSize = 16384);

    // The next line's bytes; false at the end or after a read error.
    bool Next(std::string& line);
    bool Failed() const { return m_failed; }
    // Forgets buffered bytes; the source must start over as well.
    void Restart();

private:
    bool fill();
    bool peekIs(char c);

    Source m_source;
    std::vector<char> m_buffer;
    size_t m_pos = 0;
    size_t m_end = 0;
    bool m_first = true;
    bool m_ended = false;
    bool m_failed = false;
};

} // namespace Toolkit
