#include "Toolkit/TextFile.h"

#include "Toolkit/FSStream.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/UTF8.h"

#include <cstring>

namespace Toolkit {

TextFile::TextFile() = default;
TextFile::~TextFile() = default;

bool TextFile::Open(const TString<wchar_t>& path) { return Open(UTF8::ToUTF8(path)); }

bool TextFile::Open(const TString<char>& path)
{
    Close();
    auto file = std::make_unique<FSStream>(path, FSStream::ModeRead);
    if (!file->IsOpen()) {
        TK_LOG(LogError) << "cannot open text file " << path << ": " << std::strerror(file->GetError());
        return false;
    }
    m_path = path;
    m_file = std::move(file);
    m_lines = std::make_unique<LineReader>([this](char* buffer, size_t size) { return m_file->Read(buffer, size); });
    m_eof = false;
    return true;
}

bool TextFile::IsOpened() const { return m_file != nullptr; }

void TextFile::Close()
{
    m_lines.reset();
    m_file.reset();
    m_eof = true;
    m_lineNumber = 0;
    m_lastLineValid = true;
}

bool TextFile::HasError() const { return m_lines && m_lines->Failed(); }

bool TextFile::ReadLine(TString<wchar_t>& line)
{
    line.clear();
    std::string bytes;
    if (!m_lines || !m_lines->Next(bytes)) {
        m_eof = true;
        return false;
    }
    ++m_lineNumber;
    line = UTF8::ToUNICODE(bytes);
    // Only valid UTF-8 survives the round trip unchanged.
    m_lastLineValid = UTF8::ToUTF8(line) == bytes;
    return true;
}

TString<wchar_t> TextFile::GetFirstLine()
{
    if (!m_file || !m_file->Seek(0)) {
        m_eof = true;
        return {};
    }
    m_lines->Restart();
    m_lineNumber = 0;
    m_eof = false;
    return GetNextLine();
}

TString<wchar_t> TextFile::GetNextLine()
{
    TString<wchar_t> line;
    ReadLine(line);
    return line;
}

} // namespace Toolkit
