#include "appearance/IPack.h"

#include "appearance/DirectoryPack.h"
#include "appearance/ZipPack.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

namespace UIKit {

std::unique_ptr<IPack> IPack::Open(const TString<wchar_t>& path)
{
    if (Toolkit::PathManager::FileExists(path))
        return std::make_unique<ZipPack>(path);
    if (Toolkit::PathManager::DirExists(path))
        return std::make_unique<DirectoryPack>(path);
    return {};
}

bool IPack::ReadEntry(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) const
{
    bytes.clear();
    const auto entry = OpenEntry(name);
    if (!entry)
        return false;
    char chunk[65536];
    uint64_t total = 0;
    for (;;) {
        const long long n = readBounded(*entry, name, total, chunk, sizeof chunk);
        if (n < 0) {
            bytes.clear();
            return false;
        }
        if (n == 0)
            return true;
        bytes.insert(bytes.end(), chunk, chunk + n);
    }
}

bool IPack::ReadLines(const TString<wchar_t>& name, const LineVisitor& visit) const
{
    const auto entry = OpenEntry(name);
    if (!entry)
        return false;
    uint64_t total = 0;
    Toolkit::LineReader lines(
        [&](char* buffer, size_t size) { return readBounded(*entry, name, total, buffer, size); });
    std::string bytes;
    for (size_t number = 1; lines.Next(bytes); ++number)
        if (!visit(number, Toolkit::UTF8::ToUNICODE(bytes)))
            break;
    return true;
}

long long IPack::readBounded(Entry& entry, const TString<wchar_t>& name, uint64_t& total, char* buffer,
                             size_t size) const
{
    const long long n = entry.Read(buffer, size);
    if (n <= 0)
        return n;
    if (uint64_t(n) > c_maxEntryBytes - total) {
        TK_LOG(Toolkit::LogError) << "The entry <" << name << "> of <" << GetPath() << "> holds more than "
                                  << c_maxEntryBytes << " bytes";
        return -1;
    }
    total += uint64_t(n);
    return n;
}

} // namespace UIKit
