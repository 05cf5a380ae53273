#pragma once
// One file entry of a zip archive, read as a wxInputStream (so wxImage can
// decode it directly), whole, or line by line.
//
// Lines are UTF-8 decoded to wide strings (malformed sequences become
// U+FFFD); they end at LF, CR LF or a lone CR, and a byte-order mark at the
// start is dropped. ReadLine reads ahead through its own buffer, so a
// stream is read either by lines or by bytes, not both.
//
// The stream shares the archive's libzip handle: it stays readable after
// the ArchiveZip that made it is closed or destroyed. A damaged entry (bad
// CRC, bad compressed data) turns into a read error, logged once.
#include "Toolkit/ArchiveZipEntry.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <memory>
#include <vector>
#include <wx/stream.h>

struct zip_file;

namespace Toolkit {

class LineReader;
class ZipArchiveHandle;

class ZipInputStream : public wxInputStream {
public:
    // Opens the entry; IsOk() is false (logged) when it cannot be opened.
    ZipInputStream(smart_ptr<ZipArchiveHandle> archive, const ArchiveZipEntry& entry);
    ~ZipInputStream() override;

    using wxInputStream::operator>>;
    // Replaces bytes with the rest of the entry; empty on a read error.
    ZipInputStream& operator>>(std::vector<unsigned char>& bytes);
    // The same, telling whether the entry was read without error.
    bool ReadAll(std::vector<unsigned char>& bytes);
    // The next line; false at the end of the entry or on a read error.
    bool ReadLine(TString<wchar_t>& line);

    const ArchiveZipEntry& GetEntry() const { return m_entry; }
    wxFileOffset GetLength() const override;
    // Seeking forward reads ahead; seeking back reopens the entry.
    bool IsSeekable() const override { return true; }

protected:
    size_t OnSysRead(void* buffer, size_t size) override;
    wxFileOffset OnSysSeek(wxFileOffset pos, wxSeekMode mode) override;
    wxFileOffset OnSysTell() const override { return m_position; }

private:
    bool openEntry();
    void closeEntry();
    long long readRaw(void* buffer, size_t size);
    void logReadError(const char* cause);

    smart_ptr<ZipArchiveHandle> m_archive;
    ArchiveZipEntry m_entry;
    struct zip_file* m_file = nullptr;
    wxFileOffset m_position = 0;
    bool m_errorLogged = false;
    std::unique_ptr<LineReader> m_lines;
};

} // namespace Toolkit
