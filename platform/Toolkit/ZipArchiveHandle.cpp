#include "Toolkit/ZipArchiveHandle.h"

#include <zip.h>

namespace Toolkit {

ZipArchiveHandle::ZipArchiveHandle(struct zip* archive, const TString<char>& path) : m_archive(archive), m_path(path)
{
}

// The archive was opened read-only, so discarding it is the way to close it.
ZipArchiveHandle::~ZipArchiveHandle() { zip_discard(m_archive); }

} // namespace Toolkit
