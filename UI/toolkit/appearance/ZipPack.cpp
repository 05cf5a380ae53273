#include "appearance/ZipPack.h"

#include "appearance/PackLimits.h"
#include "appearance/TextExcerpt.h"
#include "xml/ErrorSink.h"

#include "Toolkit/UTF8.h"
#include "Toolkit/ZipInputStream.h"

namespace UIKit {
namespace {

using Entries = std::map<TString<wchar_t>, Toolkit::ArchiveZipEntry>;

class ZipEntry : public IPack::Entry {
public:
    explicit ZipEntry(Toolkit::smart_ptr<Toolkit::ZipInputStream> stream) : m_stream(std::move(stream)) {}
    long long Read(char* buffer, size_t size) override
    {
        m_stream->Read(buffer, size);
        if (m_stream->GetLastError() == wxSTREAM_READ_ERROR)
            return -1;
        return static_cast<long long>(m_stream->LastRead());
    }

private:
    Toolkit::smart_ptr<Toolkit::ZipInputStream> m_stream;
};

// An archive folder directly at the top of the pack: "name/".
bool isTopLevelFolder(const TString<wchar_t>& name)
{
    return name.find(L'/') == name.size() - 1;
}

} // namespace

ZipPack::ZipPack(const TString<wchar_t>& path) : m_path(path)
{
    if (!m_zip.Open(path, true) || m_zip.EntriesList(m_files, L"*", Toolkit::ArchiveZip::EntryFiles) < 0)
        return;
    const size_t limit = PackLimits::Current().packEntries;
    if (m_files.size() > limit) {
        ErrorSink::Report(TextExcerpt::Name(path), 0,
                          "pack holds " + std::to_string(m_files.size()) + " files, more than " +
                              std::to_string(limit) + ", the limit for one pack: not used");
        m_files.clear();
        m_zip.Close();
    }
}

bool ZipPack::ListFolders(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    Entries entries;
    if (!IsOpen() || m_zip.EntriesList(entries, pattern, Toolkit::ArchiveZip::EntryFolders) < 0)
        return false;
    for (const auto& [name, entry] : entries)
        if (isTopLevelFolder(name))
            names.push_back(TString<wchar_t>(name.substr(0, name.size() - 1)));
    return true;
}

bool ZipPack::ListFiles(const TString<wchar_t>& folder, std::vector<TString<wchar_t>>& names) const
{
    return FindFiles(folder + L"/*", names) >= 0;
}

int ZipPack::FindFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names) const
{
    names.clear();
    Entries entries;
    const int found = IsOpen() ? m_zip.EntriesList(entries, pattern, Toolkit::ArchiveZip::EntryFiles) : -1;
    for (const auto& [name, entry] : entries)
        names.push_back(name);
    return found;
}

std::unique_ptr<IPack::Entry> ZipPack::OpenEntry(const TString<wchar_t>& name) const
{
    if (!IsOpen())
        return {};
    // An exact name first: listed names may hold "[" or "*" themselves.
    Entries matches;
    const bool exact = m_files.count(name) != 0;
    if (!exact && name.find_first_of(L"*?[") != TString<wchar_t>::npos)
        m_zip.EntriesList(matches, name, Toolkit::ArchiveZip::EntryFiles);
    const Entries& files = exact ? m_files : matches;
    const auto found = exact ? files.find(name) : files.begin();
    if (found == files.end())
        return {};
    auto stream = m_zip.GetZipInputStream(found->second);
    if (!stream || !stream->IsOk())
        return {};
    return std::make_unique<ZipEntry>(std::move(stream));
}

} // namespace UIKit
