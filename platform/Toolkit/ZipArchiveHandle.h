#pragma once
// The open libzip archive behind an ArchiveZip and the streams it hands
// out. Each holds a smart_ptr to it, so the archive stays open until the
// last of them is gone, whatever the order of their destruction. libzip
// handles are not thread-safe: every call on one goes through Lock().
#include "Toolkit/TString.h"

#include <mutex>

struct zip;

namespace Toolkit {

class ZipArchiveHandle {
public:
    ZipArchiveHandle(struct zip* archive, const TString<char>& path);
    ~ZipArchiveHandle();
    ZipArchiveHandle(const ZipArchiveHandle&) = delete;
    ZipArchiveHandle& operator=(const ZipArchiveHandle&) = delete;

    struct zip* Get() const { return m_archive; }
    const TString<char>& GetPath() const { return m_path; }
    std::mutex& Lock() { return m_lock; }

private:
    struct zip* m_archive;
    TString<char> m_path;
    std::mutex m_lock;
};

} // namespace Toolkit
