#pragma once
// A text file read line by line. Bytes are UTF-8 and lines come out as wide
// strings; a malformed sequence becomes U+FFFD. Lines end at LF, CR LF or a
// lone CR, and a UTF-8 byte-order mark at the start is dropped.
//
// Eof() turns true when a read finds no further line, so this loop sees
// every line, the last one included:
//
//     for (auto line = file.GetFirstLine(); !file.Eof(); line = file.GetNextLine())
#include "Toolkit/TString.h"

#include <memory>

namespace Toolkit {

class FSStream;
class LineReader;

class TextFile {
public:
    TextFile();
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    // False (logged, missing files too) when the file cannot be opened.
    bool Open(const TString<char>& path);
    bool Open(const TString<wchar_t>& path);
    bool IsOpened() const;
    void Close();
    const TString<char>& GetPath() const { return m_path; }

    // Starts over and returns the first line.
    TString<wchar_t> GetFirstLine();
    TString<wchar_t> GetNextLine();
    bool Eof() const { return m_eof; }

    // The next line; false at the end of the file or on a read error.
    bool ReadLine(TString<wchar_t>& line);
    // Whether the line last read was valid UTF-8.
    bool IsLastLineValid() const { return m_lastLineValid; }
    // Whether reading stopped on an I/O error (logged).
    bool HasError() const;
    // 1-based number of the line last read.
    size_t GetLineNumber() const { return m_lineNumber; }

private:
    TString<char> m_path;
    std::unique_ptr<FSStream> m_file;
    std::unique_ptr<LineReader> m_lines;
    bool m_eof = true;
    bool m_lastLineValid = true;
    size_t m_lineNumber = 0;
};

} // namespace Toolkit
