#pragma once
#include "module/Export.h"
// A pack that is a plain directory. Files are opened when they are read;
// names that would leave the directory ("..", absolute paths) are refused,
// as a zip pack refuses such entries, and so are symbolic links that lead
// outside it, so a downloaded pack cannot make the host read other files.
// Only regular files are opened: a FIFO or a device would block or never end.
#include "appearance/IPack.h"

#include <filesystem>

namespace UIKit {

class UIKIT_API DirectoryPack : public IPack {
public:
    explicit DirectoryPack(const TString<wchar_t>& path);

    const TString<wchar_t>& GetPath() const override { return m_path; }
    bool IsArchive() const override { return false; }
    bool ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const override;
    // The files matching "*.*" directly in the folder.
    bool ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const override;
    // A directory pack does not search: -1.
    int FindFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const override;
    std::unique_ptr<Entry> OpenEntry(const TString<wchar_t>& name) const override;

private:
    static bool isInsidePack(const TString<wchar_t>& relative);
    TString<wchar_t> pathOf(const TString<wchar_t>& relative) const;
    // The file or folder the relative name leads to, links resolved, when
    // it stays inside the pack; empty (a link leading out is logged) otherwise.
    std::filesystem::path resolve(const TString<wchar_t>& relative) const;

    TString<wchar_t> m_path;
    // The pack's own folder, links resolved.
    std::filesystem::path m_root;
};

} // namespace UIKit
