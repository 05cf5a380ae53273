#include "appearance/DirectoryPack.h"

#include "Toolkit/Directory.h"
#include "Toolkit/FSStream.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <algorithm>

namespace UIKit {
namespace {

namespace fs = std::filesystem;

fs::path nativePath(const TString<wchar_t>& path)
{
    return fs::path(std::string(Toolkit::UTF8::ToUTF8(path)));
}

class FileEntry : public IPack::Entry {
public:
    explicit FileEntry(const fs::path& path)
        : m_file(TString<char>(path.string()), Toolkit::FSStream::ModeRead)
    {
    }
    bool IsOpen() const { return m_file.IsOpen(); }
    long long Read(char* buffer, size_t size) override { return m_file.Read(buffer, size); }

private:
    Toolkit::FSStream m_file;
};

} // namespace

DirectoryPack::DirectoryPack(const TString<wchar_t>& path) : m_path(path)
{
    std::error_code error;
    m_root = fs::canonical(nativePath(path), error);
}

bool DirectoryPack::ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    const Toolkit::Directory dir(m_path);
    return dir.IsOpen() && dir.GetDirectories(pattern, names, 0);
}

bool DirectoryPack::ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    if (!isInsidePack(folder) || resolve(folder).empty())
        return false;
    const Toolkit::Directory dir(pathOf(folder));
    if (!dir.IsOpen() || !dir.GetFiles(L"*.*", names, 0))
        return false;
    for (auto& name : names)
        name = folder + L"/" + name;
    return true;
}

int DirectoryPack::FindFiles(const TString<wchar_t>&, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    return -1;
}

std::unique_ptr<IPack::Entry> DirectoryPack::OpenEntry(const TString<wchar_t>& name) const
{
    if (!isInsidePack(name))
        return {};
    const fs::path path = resolve(name);
    std::error_code error;
    if (path.empty() || !fs::is_regular_file(path, error))
        return {};
    auto entry = std::make_unique<FileEntry>(path);
    if (!entry->IsOpen())
        return {};
    return entry;
}

bool DirectoryPack::isInsidePack(const TString<wchar_t>& relative)
{
    if (relative.empty() || relative.front() == L'/')
        return false;
    for (const auto& part : relative.Split(L"/"))
        if (part == L"..")
            return false;
    return true;
}

fs::path DirectoryPack::resolve(const TString<wchar_t>& relative) const
{
    std::error_code error;
    const fs::path path = fs::canonical(nativePath(pathOf(relative)), error);
    if (error || m_root.empty())
        return {};
    // Inside when the pack's folder is a leading part of the resolved path.
    if (std::mismatch(m_root.begin(), m_root.end(), path.begin(), path.end()).first != m_root.end()) {
        TK_LOG(Toolkit::LogError) << "The entry <" << relative << "> of the pack <" << m_path
                                  << "> leads outside the pack: not read";
        return {};
    }
    return path;
}

TString<wchar_t> DirectoryPack::pathOf(const TString<wchar_t>& relative) const
{
    TString<wchar_t> path = m_path;
    Toolkit::PathManager::AppendPath(path, relative);
    return path;
}

} // namespace UIKit
