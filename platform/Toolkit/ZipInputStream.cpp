#include "Toolkit/ZipInputStream.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/UTF8.h"
#include "Toolkit/ZipArchiveHandle.h"

#include <algorithm>
#include <zip.h>

namespace Toolkit {
namespace {
constexpr size_t c_maxReserve = 64u << 20; // a lying size field must not reserve gigabytes
} // namespace

ZipInputStream::ZipInputStream(smart_ptr<ZipArchiveHandle> archive, const ArchiveZipEntry& entry)
    : m_archive(std::move(archive)), m_entry(entry)
{
    if (!openEntry())
        m_lasterror = wxSTREAM_READ_ERROR;
}

ZipInputStream::~ZipInputStream() { closeEntry(); }

bool ZipInputStream::openEntry()
{
    if (!m_archive || m_entry.GetIndex() < 0)
        return false;
    std::lock_guard lock(m_archive->Lock());
    m_file = zip_fopen_index(m_archive->Get(), zip_uint64_t(m_entry.GetIndex()), 0);
    if (!m_file) {
        TK_LOG(LogError) << "cannot open entry " << m_entry.GetName() << " of zip archive " << m_archive->GetPath()
                         << ": " << zip_strerror(m_archive->Get());
        m_errorLogged = true;
        return false;
    }
    m_position = 0;
    return true;
}

void ZipInputStream::closeEntry()
{
    if (!m_file)
        return;
    std::lock_guard lock(m_archive->Lock());
    zip_fclose(m_file);
    m_file = nullptr;
}

void ZipInputStream::logReadError(const char* cause)
{
    if (m_errorLogged)
        return;
    m_errorLogged = true;
    TK_LOG(LogError) << "cannot read entry " << m_entry.GetName() << " of zip archive " << m_archive->GetPath()
                     << ": " << cause;
}

long long ZipInputStream::readRaw(void* buffer, size_t size)
{
    if (!m_file)
        return -1;
    std::lock_guard lock(m_archive->Lock());
    const zip_int64_t n = zip_fread(m_file, buffer, zip_uint64_t(size));
    if (n < 0) {
        logReadError(zip_file_strerror(m_file));
        return -1;
    }
    m_position += n;
    return n;
}

size_t ZipInputStream::OnSysRead(void* buffer, size_t size)
{
    const long long n = readRaw(buffer, size);
    if (n < 0) {
        m_lasterror = wxSTREAM_READ_ERROR;
        return 0;
    }
    if (n == 0)
        m_lasterror = wxSTREAM_EOF;
    return size_t(n);
}

wxFileOffset ZipInputStream::OnSysSeek(wxFileOffset pos, wxSeekMode mode)
{
    const auto length = wxFileOffset(m_entry.GetSize());
    const wxFileOffset target = mode == wxFromStart ? pos : mode == wxFromCurrent ? m_position + pos : length + pos;
    if (target < 0 || target > length)
        return wxInvalidOffset;
    if (target < m_position) {
        closeEntry();
        if (!openEntry())
            return wxInvalidOffset;
    }
    char scratch[8192];
    while (m_position < target) {
        const auto want = size_t(std::min<wxFileOffset>(target - m_position, wxFileOffset(sizeof scratch)));
        if (readRaw(scratch, want) <= 0)
            return wxInvalidOffset;
    }
    if (m_lines)
        m_lines->Restart();
    return m_position;
}

wxFileOffset ZipInputStream::GetLength() const { return wxFileOffset(m_entry.GetSize()); }

ZipInputStream& ZipInputStream::operator>>(std::vector<unsigned char>& bytes)
{
    ReadAll(bytes);
    return *this;
}

bool ZipInputStream::ReadAll(std::vector<unsigned char>& bytes)
{
    bytes.clear();
    bytes.reserve(size_t(std::min<uint64_t>(m_entry.GetSize(), c_maxReserve)));
    unsigned char chunk[65536];
    while (IsOk()) {
        Read(chunk, sizeof chunk);
        bytes.insert(bytes.end(), chunk, chunk + LastRead());
    }
    if (GetLastError() != wxSTREAM_EOF) {
        bytes.clear();
        return false;
    }
    return true;
}

bool ZipInputStream::ReadLine(TString<wchar_t>& line)
{
    line.clear();
    if (!m_lines) {
        m_lines = std::make_unique<LineReader>([this](char* buffer, size_t size) -> long long {
            Read(buffer, size);
            return GetLastError() == wxSTREAM_READ_ERROR ? -1 : static_cast<long long>(LastRead());
        });
    }
    std::string bytes;
    if (!m_lines->Next(bytes))
        return false;
    line = UTF8::ToUNICODE(bytes);
    return true;
}

} // namespace Toolkit
