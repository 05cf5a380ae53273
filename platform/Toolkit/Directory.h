#pragma once
// Lists the entries of a directory that match a shell pattern (fnmatch:
// "*", "?", "[...]"; case-sensitive). Names come back sorted by code point,
// so listings do not depend on the file system's order. As in the shell,
// names starting with "." only match a pattern that starts with "." unless
// IncludeHidden is given. An empty pattern means "*".
#include "Toolkit/TString.h"

#include <vector>

namespace Toolkit {

class Directory {
public:
    enum Flags : unsigned {
        FullPaths = 1,     // directory path joined with each name instead of the bare name
        IncludeHidden = 2, // "*" also matches names starting with "."
    };

    Directory() = default;
    explicit Directory(const TString<char>& path) { Open(path); }
    explicit Directory(const TString<wchar_t>& path) { Open(path); }

    // False (logged) when the path is not a directory.
    bool Open(const TString<char>& path);
    bool Open(const TString<wchar_t>& path);
    bool IsOpen() const { return m_open; }
    void Close() { m_open = false; }
    const TString<char>& GetPath() const { return m_path; }

    // Replace names with the matching regular files (resp. directories);
    // false (logged) when the directory cannot be listed.
    bool GetFiles(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names, unsigned flags) const;
    bool GetDirectories(const TString<wchar_t>& pattern, std::vector<TString<wchar_t>>& names, unsigned flags) const;

    // Replaces names with the names (not paths) of every entry of dir,
    // files and directories alike, matching the pattern; false (logged)
    // when the directory cannot be listed.
    static bool EnumFilePaths(std::vector<TString<wchar_t>>& names, const TString<char>& dir,
                              const TString<wchar_t>& pattern);
    static bool EnumFilePaths(std::vector<TString<wchar_t>>& names, const TString<wchar_t>& dir,
                              const TString<wchar_t>& pattern);

private:
    enum class Kind { Any, File, Folder };
    static bool list(const TString<char>& dir, const TString<wchar_t>& pattern, Kind kind, unsigned flags,
                     std::vector<TString<wchar_t>>& names);

    TString<char> m_path;
    bool m_open = false;
};

} // namespace Toolkit
