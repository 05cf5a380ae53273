#include "appearance/DirectoryPack.h"

#include "Toolkit/Directory.h"
#include "Toolkit/FSStream.h"
#include "Toolkit/PathManager.h"

namespace UIKit {
namespace {

class FileEntry : public IPack::Entry {
public:
    explicit FileEntry(const TString<wchar_t>& path) : m_file(path, Toolkit::FSStream::ModeRead) {}
    bool IsOpen() const { return m_file.IsOpen(); }
    long long Read(char* buffer, size_t size) override { return m_file.Read(buffer, size); }

private:
    Toolkit::FSStream m_file;
};

} // namespace

DirectoryPack::DirectoryPack(const TString<wchar_t>& path) : m_path(path) {}

bool DirectoryPack::ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    const Toolkit::Directory dir(m_path);
    return dir.IsOpen() && dir.GetDirectories(pattern, names, 0);
}

bool DirectoryPack::ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    if (!isInsidePack(folder))
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
    const TString<wchar_t> path = pathOf(name);
    if (!isInsidePack(name) || !Toolkit::PathManager::FileExists(path))
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

TString<wchar_t> DirectoryPack::pathOf(const TString<wchar_t>& relative) const
{
    TString<wchar_t> path = m_path;
    Toolkit::PathManager::AppendPath(path, relative);
    return path;
}

} // namespace UIKit
