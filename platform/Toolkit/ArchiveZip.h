#pragma once
// A zip archive opened read-only with libzip, listed by shell patterns and
// read entry by entry through ZipInputStream.
//
// Entry names that could reach outside a destination folder ("../x",
// "/etc/x", "C:x", backslash forms) are refused when the archive is opened:
// they are logged once and never listed, so they never reach the file
// system or a caller. Patterns follow fnmatch without FNM_PATHNAME, so "*"
// also matches "/" ("strings.fr*" lists the files of the folder
// strings.fr/). Folder names end with "/"; folders that have no entry of
// their own are listed too, implied by the names of their files.
//
// An ArchiveZip object is used by one thread at a time; the streams it
// hands out may be read from any thread and outlive it.
#include "Toolkit/ArchiveZipEntry.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <map>

namespace Toolkit {

class ZipArchiveHandle;
class ZipInputStream;

class ArchiveZip {
public:
    enum EntryType : int {
        EntryFiles = 1,
        EntryFolders = 2,
    };

    ArchiveZip();
    ~ArchiveZip();
    ArchiveZip(const ArchiveZip&) = delete;
    ArchiveZip& operator=(const ArchiveZip&) = delete;

    // Opens the archive (closing any other first). With checkConsistency
    // libzip also checks the archive's directory against its entries.
    // False, with one log entry naming the file and libzip's reason, when
    // the file is missing or not a zip archive.
    bool Open(const TString<wchar_t>& path, bool checkConsistency = true);
    bool Open(const TString<char>& path, bool checkConsistency = true);
    bool IsOpen() const { return !m_handle.IsNull(); }
    void Close();
    const TString<char>& GetPath() const { return m_path; }

    // Replaces entries with the files (EntryFiles) or folders
    // (EntryFolders) whose names match the pattern. 1 when some were found,
    // 0 when none, -1 (logged) when no archive is open or the type is unknown.
    int EntriesList(std::map<TString<wchar_t>, ArchiveZipEntry>& entries, const TString<wchar_t>& pattern,
                    int type) const;

    // A stream over one file entry of this archive's listing; null (logged)
    // when the entry is not one of its files or cannot be opened.
    smart_ptr<ZipInputStream> GetZipInputStream(const ArchiveZipEntry& entry) const;

private:
    void readDirectory();
    void addImpliedFolders(const TString<wchar_t>& fileName);

    TString<char> m_path;
    smart_ptr<ZipArchiveHandle> m_handle;
    std::map<TString<wchar_t>, ArchiveZipEntry> m_entries;
};

} // namespace Toolkit
