#include "Preferences/CorruptFiles.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <vector>

namespace Preferences {
namespace {

namespace fs = std::filesystem;

// The numbers of the files already set aside for `path`, in ascending order.
std::vector<unsigned long> numbersInUse(const fs::path& path)
{
    const std::string prefix = path.filename().string() + ".corrupt-";
    std::vector<unsigned long> numbers;
    std::error_code ec;
    for (fs::directory_iterator it(path.parent_path(), ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.compare(0, prefix.size(), prefix) != 0)
            continue;
        unsigned long n = 0;
        const char* first = name.data() + prefix.size();
        const char* last = name.data() + name.size();
        const auto [ptr, error] = std::from_chars(first, last, n);
        if (error == std::errc() && ptr == last && ptr != first)
            numbers.push_back(n);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::string asideName(const std::string& path, unsigned long n) { return path + ".corrupt-" + std::to_string(n); }

} // namespace

TString<char> CorruptFiles::MoveAside(const TString<char>& path, size_t kept)
{
    auto numbers = numbersInUse(fs::path(std::string(path)));
    unsigned long next = numbers.empty() ? 1 : numbers.back() + 1;
    // RENAME_NOREPLACE: a name taken meanwhile (another process) is skipped, never overwritten.
    while (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, asideName(path, next).c_str(), RENAME_NOREPLACE) != 0) {
        if (errno != EEXIST)
            return {};
        ++next;
    }
    numbers.push_back(next);
    // remove() never deletes a directory that still holds files.
    for (size_t i = 0; i + kept < numbers.size(); ++i)
        ::remove(asideName(path, numbers[i]).c_str());
    return TString<char>(asideName(path, next));
}

} // namespace Preferences
