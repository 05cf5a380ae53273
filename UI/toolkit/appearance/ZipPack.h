#pragma once
#include "module/Export.h"
// A pack that is a zip archive. The archive is opened once, when the pack
// is made, and stays open until the pack goes, so that reading many
// resources does not reopen and relist it each time; its files are looked
// up by name. Entry names that could leave the archive are refused by the
// archive reader when it opens, and an archive holding more files than the
// pack-entry limit is not used at all.
#include "appearance/IPack.h"

#include "Toolkit/ArchiveZip.h"

#include <map>

namespace UIKit {

class UIKIT_API ZipPack : public IPack {
public:
    // Opens the archive; a file that is not a zip archive (logged by the
    // archive reader) or that holds too many files (reported) gives a pack
    // that is not open and lists and reads nothing.
    explicit ZipPack(const TString<wchar_t>& path);

    bool IsOpen() const { return m_zip.IsOpen(); }
    const TString<wchar_t>& GetPath() const override { return m_path; }
    bool IsArchive() const override { return true; }
    bool ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const override;
    // Every file entry below the folder.
    bool ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const override;
    int FindFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const override;
    // A name that is not a file's is matched as a pattern, and when it
    // matches several entries the lowest name is opened.
    std::unique_ptr<Entry> OpenEntry(const TString<wchar_t>& name) const override;

private:
    TString<wchar_t> m_path;
    Toolkit::ArchiveZip m_zip;
    // The archive's files by name, listed once when it opens.
    std::map<TString<wchar_t>, Toolkit::ArchiveZipEntry> m_files;
};

} // namespace UIKit
