#pragma once
// One entry of a zip archive as listed by ArchiveZip::EntriesList: its name
// inside the archive ("graphics/logo.png"; folders end with "/"), its place
// in the archive's directory and its sizes.
#include "Toolkit/TString.h"

#include <cstdint>

namespace Toolkit {

class ArchiveZipEntry {
public:
    ArchiveZipEntry() = default;
    ArchiveZipEntry(const TString<wchar_t>& name, long long index, uint64_t size, uint64_t compressedSize,
                    bool folder);

    const TString<wchar_t>& GetName() const { return m_name; }
    // The part of the name after the last "/" (a folder's trailing "/" aside).
    TString<wchar_t> GetFileName() const;
    // Index in the archive's directory; -1 for a folder that has no entry
    // of its own and is only implied by the names of its files.
    long long GetIndex() const { return m_index; }
    uint64_t GetSize() const { return m_size; }
    uint64_t GetCompressedSize() const { return m_compressedSize; }
    bool IsFolder() const { return m_folder; }

private:
    TString<wchar_t> m_name;
    long long m_index = -1;
    uint64_t m_size = 0;
    uint64_t m_compressedSize = 0;
    bool m_folder = false;
};

} // namespace Toolkit
