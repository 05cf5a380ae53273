#include "Toolkit/ArchiveZip.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "Toolkit/ZipArchiveHandle.h"
#include "Toolkit/ZipInputStream.h"

#include <cctype>
#include <fnmatch.h>
#include <zip.h>

namespace Toolkit {
namespace {

// True when extracting the name below a folder would stay inside it.
bool isSafeEntryName(std::string_view name)
{
    if (name.empty() || name.front() == '/' || name.front() == '\\')
        return false;
    if (name.size() >= 2 && name[1] == ':' && std::isalpha(static_cast<unsigned char>(name[0])))
        return false;
    size_t start = 0;
    while (start <= name.size()) {
        const size_t end = name.find_first_of("/\\", start);
        const auto part = name.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        if (part == "..")
            return false;
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
    return true;
}

TString<char> libzipErrorText(int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    TString<char> text(zip_error_strerror(&error));
    zip_error_fini(&error);
    return text;
}

} // namespace

ArchiveZip::ArchiveZip() = default;
ArchiveZip::~ArchiveZip() = default;

bool ArchiveZip::Open(const TString<wchar_t>& path, bool checkConsistency)
{
    return Open(UTF8::ToUTF8(path), checkConsistency);
}

bool ArchiveZip::Open(const TString<char>& path, bool checkConsistency)
{
    Close();
    int code = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | (checkConsistency ? ZIP_CHECKCONS : 0), &code);
    if (!archive) {
        TK_LOG(LogError) << "cannot open zip archive " << path << ": " << libzipErrorText(code);
        return false;
    }
    m_path = path;
    m_handle = make_smart<ZipArchiveHandle>(archive, path);
    readDirectory();
    return true;
}

void ArchiveZip::Close()
{
    m_handle.reset();
    m_entries.clear();
    m_path.clear();
}

void ArchiveZip::readDirectory()
{
    zip_t* archive = m_handle->Get();
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    TString<char> refused;
    size_t refusedCount = 0;
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t st;
        zip_stat_init(&st);
        if (zip_stat_index(archive, zip_uint64_t(i), ZIP_FL_ENC_GUESS, &st) != 0 || !(st.valid & ZIP_STAT_NAME))
            continue;
        const std::string_view name(st.name);
        if (!isSafeEntryName(name)) {
            refused += (refusedCount++ ? ", " : "") + std::string(name);
            continue;
        }
        const bool folder = name.back() == '/';
        const auto wideName = UTF8::ToUNICODE(name);
        m_entries.try_emplace(wideName, wideName, i, (st.valid & ZIP_STAT_SIZE) ? st.size : 0,
                              (st.valid & ZIP_STAT_COMP_SIZE) ? st.comp_size : 0, folder);
        addImpliedFolders(wideName);
    }
    if (refusedCount)
        TK_LOG(LogError) << "refused " << refusedCount << " unsafe entry name(s) in zip archive " << m_path << ": "
                         << refused;
}

void ArchiveZip::addImpliedFolders(const TString<wchar_t>& fileName)
{
    for (size_t slash = fileName.find(L'/'); slash != TString<wchar_t>::npos && slash + 1 < fileName.size();
         slash = fileName.find(L'/', slash + 1)) {
        const TString<wchar_t> folder(fileName.substr(0, slash + 1));
        m_entries.try_emplace(folder, folder, -1, 0, 0, true);
    }
}

int ArchiveZip::EntriesList(std::map<TString<wchar_t>, ArchiveZipEntry>& entries, const TString<wchar_t>& pattern,
                            int type) const
{
    entries.clear();
    if (!IsOpen()) {
        TK_LOG(LogError) << "cannot list entries matching " << pattern << ": no zip archive is open";
        return -1;
    }
    if (type != EntryFiles && type != EntryFolders) {
        TK_LOG(LogError) << "cannot list entries of " << m_path << ": unknown entry type " << type;
        return -1;
    }
    const std::string glob(UTF8::ToUTF8(pattern));
    for (const auto& [name, entry] : m_entries) {
        if (entry.IsFolder() != (type == EntryFolders))
            continue;
        if (::fnmatch(glob.c_str(), UTF8::ToUTF8(name).c_str(), 0) == 0)
            entries.emplace(name, entry);
    }
    return entries.empty() ? 0 : 1;
}

smart_ptr<ZipInputStream> ArchiveZip::GetZipInputStream(const ArchiveZipEntry& entry) const
{
    const auto known = m_entries.find(entry.GetName());
    if (!IsOpen() || known == m_entries.end() || known->second.IsFolder() ||
        known->second.GetIndex() != entry.GetIndex()) {
        TK_LOG(LogError) << "cannot read entry " << entry.GetName() << ": not a file of the zip archive "
                         << (IsOpen() ? m_path : TString<char>("(none open)"));
        return nullptr;
    }
    auto stream = make_smart<ZipInputStream>(m_handle, known->second);
    if (!stream->IsOk())
        return nullptr;
    return stream;
}

} // namespace Toolkit
