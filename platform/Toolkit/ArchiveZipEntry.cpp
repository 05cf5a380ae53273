#include "Toolkit/ArchiveZipEntry.h"

namespace Toolkit {

ArchiveZipEntry::ArchiveZipEntry(const TString<wchar_t>& name, long long index, uint64_t size,
                                 uint64_t compressedSize, bool folder)
    : m_name(name), m_index(index), m_size(size), m_compressedSize(compressedSize), m_folder(folder)
{
}

TString<wchar_t> ArchiveZipEntry::GetFileName() const
{
    std::wstring_view name(m_name);
    if (!name.empty() && name.back() == L'/')
        name.remove_suffix(1);
    const auto slash = name.rfind(L'/');
    return TString<wchar_t>(slash == std::wstring_view::npos ? name : name.substr(slash + 1));
}

} // namespace Toolkit
