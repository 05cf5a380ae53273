#pragma once
#include "module/Export.h"
// The bundle configuration of the product, an INI file naming the main
// bundle ("MainBundle" or "MainBundle.<selector>": "Entry" and "Plugs") and
// each bundle's graphical-interface plug-ins ("Bundle.<name>": "GipDep").
// Its one answer is the GIP filter list: the plug-ins the plug-in manager
// may load. The file is read on the first question, not before.
#include "module/Singleton.h"

#include "Toolkit/TString.h"

#include <vector>

namespace UIKit {

class UIKIT_API ConfDataFile : public Singleton<ConfDataFile> {
public:
    ConfDataFile();
    virtual ~ConfDataFile();

    // Remembers the file; reads nothing yet.
    void LoadFromFile(const TString<wchar_t>& path);
    void SetBundleSelector(const TString<wchar_t>& name);
    const TString<wchar_t>& GetPath() const { return m_path; }
    const TString<wchar_t>& GetBundleSelector() const { return m_bundleSelector; }

    // The GIP names of the entry bundle, then of each plug bundle, in file
    // order, duplicates kept. Computed while empty, then kept whatever
    // bundle later calls name; empty when the file or its sections are missing.
    const std::vector<TString<wchar_t>>& GetGipFilterList(const TString<wchar_t>& bundle);
    const std::vector<TString<wchar_t>>& GetGipFilterList();

private:
    void computeFilterList(const TString<wchar_t>& bundle);

    TString<wchar_t> m_path;
    TString<wchar_t> m_bundleSelector;
    std::vector<TString<wchar_t>> m_gipFilterList;
};

} // namespace UIKit
