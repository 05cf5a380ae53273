// libFuzzer target for what the appearance reads from a downloaded pack:
// language-file lines, a zip pack and a directory pack. The first byte of
// an input chooses which:
//   0: the rest is a language file; every line is parsed as a definition
//      and as a culture header;
//   1: the rest is a zip archive, opened as a pack whose folders, files and
//      entries are all listed and read;
//   2: the rest describes a directory pack, records separated by NUL:
//      "f<name>\n<content>" writes a file, "l<name>\n<target>" makes a
//      symbolic link, "r<name>" reads an entry through the pack. Names
//      written are kept to letters, digits, ".", "_" and "/" without "..",
//      so the fuzzer never writes outside its scratch folder.
// Limits are lowered so that inputs of a few kilobytes reach them.
#include "appearance/IPack.h"
#include "appearance/LanguageLine.h"
#include "appearance/PackLimits.h"
#include "appearance/TextExcerpt.h"
#include "xml/ErrorSink.h"

#include "Toolkit/UTF8.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using UIKit::IPack;
using UIKit::LanguageLine;

namespace {

const fs::path& scratch()
{
    static const fs::path dir = fs::temp_directory_path() / ("pack-fuzz-" + std::to_string(getpid()));
    return dir;
}

void parseLines(const std::string& text)
{
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        const TString<wchar_t> line = Toolkit::UTF8::ToUNICODE(text.substr(start, end - start));
        const LanguageLine parsed = LanguageLine::Parse(line);
        if (parsed.kind == LanguageLine::Definition && (parsed.key.empty() || parsed.text.size() > line.size()))
            std::abort();
        TString<wchar_t> nativeName;
        if (LanguageLine::ParseHeader(line, nativeName) && nativeName.size() > line.size())
            std::abort();
        if (UIKit::TextExcerpt::Of(line).find_first_of(L"\n\r\x1b") != std::wstring::npos)
            std::abort();
        start = end + 1;
    }
}

void readEverything(const IPack& pack, const std::vector<TString<wchar_t>>& extraNames)
{
    std::vector<TString<wchar_t>> folders, files, names = extraNames;
    pack.ListFolders(L"*", folders);
    for (const auto& folder : folders) {
        pack.ListFiles(folder, files);
        names.insert(names.end(), files.begin(), files.end());
    }
    if (pack.FindFiles(L"*", files) > 0)
        names.insert(names.end(), files.begin(), files.end());
    std::vector<unsigned char> bytes;
    for (const auto& name : names) {
        if (pack.ReadEntry(name, bytes) && bytes.size() > UIKit::PackLimits::Current().entryBytes)
            std::abort();
        pack.ReadLines(name, [](size_t, const TString<wchar_t>& line) {
            LanguageLine::Parse(line);
            return true;
        });
    }
}

void readZip(const std::string& bytes)
{
    const fs::path path = scratch() / "fuzz.ar";
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    if (const auto pack = IPack::Open(path.wstring()))
        readEverything(*pack, {});
}

bool isSafeName(const std::string& name)
{
    if (name.empty() || name.front() == '/' || name.find("..") != std::string::npos)
        return false;
    for (const char c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.' && c != '_' && c != '/')
            return false;
    return true;
}

void readDirectory(const std::string& description)
{
    const fs::path root = scratch() / "dir.ar";
    std::error_code error;
    fs::remove_all(root, error);
    fs::create_directories(root);
    std::vector<TString<wchar_t>> reads;
    size_t start = 0;
    while (start < description.size()) {
        size_t end = description.find('\0', start);
        if (end == std::string::npos)
            end = description.size();
        const std::string record = description.substr(start, end - start);
        start = end + 1;
        if (record.empty())
            continue;
        const size_t split = record.find('\n');
        const std::string name = record.substr(1, split == std::string::npos ? std::string::npos : split - 1);
        const std::string rest = split == std::string::npos ? "" : record.substr(split + 1);
        if (record[0] == 'r') {
            reads.push_back(Toolkit::UTF8::ToUNICODE(name));
        } else if (isSafeName(name) && (record[0] == 'f' || record[0] == 'l')) {
            const fs::path path = root / name;
            fs::create_directories(path.parent_path(), error);
            if (record[0] == 'f')
                std::ofstream(path, std::ios::binary) << rest;
            else
                fs::create_symlink(rest, path, error);
        }
    }
    if (const auto pack = IPack::Open(root.wstring()))
        readEverything(*pack, reads);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fs::create_directories(scratch());
    UIKit::ErrorSink::Install([](const UIKit::PackError&) {});
    UIKit::PackLimits& limits = UIKit::PackLimits::Current();
    limits.entryBytes = 4096;
    limits.lineBytes = 256;
    limits.packEntries = 64;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const std::string rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 3) {
    case 0: parseLines(rest); break;
    case 1: readZip(rest); break;
    default: readDirectory(rest); break;
    }
    return 0;
}
