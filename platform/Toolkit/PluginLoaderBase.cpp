#include "Toolkit/PluginLoaderBase.h"

#include "Toolkit/Directory.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

namespace Toolkit {

bool PluginLoaderBase::ListCandidates(std::vector<TString<wchar_t>>& files) const
{
    files.clear();
    if (m_filterList.empty() && m_filePattern.empty()) {
        TK_LOG(LogError) << "Neither the FilePattern neither the GipFilterList are set! => aborting the current load ...";
        return false;
    }
    Directory directory;
    if (!directory.Open(m_directory))
        return false;
    if (m_filterList.empty())
        return directory.GetFiles(m_filePattern, files, 0);
    std::vector<TString<wchar_t>> matches;
    for (const auto& filter : m_filterList)
        if (directory.GetFiles(L"*" + filter, matches, 0) && matches.size() == 1)
            files.push_back(matches.front());
    return true;
}

void* PluginLoaderBase::OpenEntry(DynamicLibrary& library, const TString<wchar_t>& file) const
{
    TString<wchar_t> path = m_directory;
    PathManager::AppendPath(path, file);
    if (!library.Load(path))
        return nullptr;
    TString<char> error;
    void* entry = library.FindSymbol(UTF8::ToUTF8(m_entry), &error);
    if (!entry)
        LogRejected(file, error);
    return entry;
}

void PluginLoaderBase::LogRejected(const TString<wchar_t>& file, const TString<char>& cause) const
{
    TK_LOG(LogError) << "Not Found symbol SYMBOL[" << m_entry << "] PLUGIN[" << file << "]: " << cause;
}

} // namespace Toolkit
