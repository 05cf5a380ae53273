#pragma once
// What every plug-in loader does whatever its plug-in type: choose the
// files to load and open each one up to its entry function. Which files:
// with a filter list, for each entry f in order the one file of the
// directory whose name ends with f (an entry matching no file or several
// contributes nothing, so the list's order is the load order); without
// one, every file matching the file pattern; with neither, none (logged).
#include "Toolkit/DynamicLibrary.h"
#include "Toolkit/TString.h"

#include <vector>

namespace Toolkit {

class PluginLoaderBase {
public:
    PluginLoaderBase(const TString<wchar_t>& entry, const TString<wchar_t>& directory)
        : m_entry(entry), m_directory(directory)
    {
    }
    virtual ~PluginLoaderBase() = default;

    void SetFilePattern(const TString<wchar_t>& pattern) { m_filePattern = pattern; }
    void SetFilterList(const std::vector<TString<wchar_t>>& filters) { m_filterList = filters; }
    const TString<wchar_t>& GetEntryName() const { return m_entry; }
    const TString<wchar_t>& GetDirectory() const { return m_directory; }

protected:
    // The file names to load, in load order; false (logged) when neither a
    // filter list nor a file pattern is set.
    bool ListCandidates(std::vector<TString<wchar_t>>& files) const;
    // Opens directory/file and returns its entry function; null when the
    // file is no library (the loader's message is logged) or lacks the entry.
    void* OpenEntry(DynamicLibrary& library, const TString<wchar_t>& file) const;
    // The one log entry of a library that gives no plug-in.
    void LogRejected(const TString<wchar_t>& file, const TString<char>& cause) const;

    std::vector<TString<wchar_t>> m_filterList;
    TString<wchar_t> m_filePattern;
    TString<wchar_t> m_entry;
    TString<wchar_t> m_directory;
};

} // namespace Toolkit
