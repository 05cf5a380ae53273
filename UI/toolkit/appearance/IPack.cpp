#include "appearance/IPack.h"

#include "appearance/DirectoryPack.h"
#include "appearance/PackLimits.h"
#include "appearance/TextExcerpt.h"
#include "appearance/ZipPack.h"
#include "xml/ErrorSink.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/LineReader.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

namespace UIKit {

std::unique_ptr<IPack> IPack::Open(const TString<wchar_t>& path)
{
    if (Toolkit::PathManager::DirExists(path))
        return std::make_unique<DirectoryPack>(path);
    if (Toolkit::PathManager::FileExists(path)) {
        auto zip = std::make_unique<ZipPack>(path);
        if (zip->IsOpen())
            return zip;
        return {};
    }
    TK_LOG(Toolkit::LogError) << "The pack <" << path << "> is neither a file nor a directory";
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
    const size_t maxLine = PackLimits::Current().lineBytes;
    std::string bytes;
    for (size_t number = 1; lines.Next(bytes); ++number) {
        if (bytes.size() > maxLine) {
            ErrorSink::Report(TextExcerpt::Name(name), int(number),
                              "line longer than " + std::to_string(maxLine) +
                                  " bytes, the limit for one line: skipped");
            continue;
        }
        if (!visit(number, Toolkit::UTF8::ToUNICODE(bytes)))
            break;
    }
    return true;
}

long long IPack::readBounded(Entry& entry, const TString<wchar_t>& name, uint64_t& total, char* buffer,
                             size_t size) const
{
    const long long n = entry.Read(buffer, size);
    if (n <= 0)
        return n;
    const uint64_t limit = PackLimits::Current().entryBytes;
    if (total > limit || uint64_t(n) > limit - total) {
        ErrorSink::Report(TextExcerpt::Name(name), 0,
                          "entry holds more than " + std::to_string(limit) +
                              " bytes, the limit for one entry: not read");
        return -1;
    }
    total += uint64_t(n);
    return n;
}

} // namespace UIKit
