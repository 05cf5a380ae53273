#include "appearance/ConfDataFile.h"

#include "Toolkit/IniFile.h"
#include "Toolkit/PathManager.h"

namespace UIKit {
namespace {

const TString<wchar_t> c_mainBundle(L"MainBundle");

// Names separated by ","; blanks around a name are dropped and empty names
// (runs of commas, leading or trailing commas) skipped.
void appendNames(const TString<wchar_t>& list, std::vector<TString<wchar_t>>& names)
{
    for (const auto& part : list.Split(L",")) {
        TString<wchar_t> name = part.Trim();
        if (!name.empty())
            names.push_back(std::move(name));
    }
}

} // namespace

ConfDataFile::ConfDataFile() = default;
ConfDataFile::~ConfDataFile() = default;

void ConfDataFile::LoadFromFile(const TString<wchar_t>& path)
{
    m_path = path;
}

void ConfDataFile::SetBundleSelector(const TString<wchar_t>& name)
{
    m_bundleSelector = name;
}

const std::vector<TString<wchar_t>>& ConfDataFile::GetGipFilterList(const TString<wchar_t>& bundle)
{
    if (m_gipFilterList.empty())
        computeFilterList(bundle);
    return m_gipFilterList;
}

const std::vector<TString<wchar_t>>& ConfDataFile::GetGipFilterList()
{
    return GetGipFilterList(m_bundleSelector);
}

void ConfDataFile::computeFilterList(const TString<wchar_t>& bundle)
{
    Toolkit::IniFile ini;
    if (m_path.empty() || !Toolkit::PathManager::FileExists(m_path) || !ini.Open(m_path))
        return;
    TString<wchar_t> main = c_mainBundle;
    if (!bundle.empty() && ini.HasSection(c_mainBundle + L"." + bundle))
        main = c_mainBundle + L"." + bundle;
    if (!ini.HasSection(main))
        return;

    std::vector<TString<wchar_t>> bundles;
    const TString<wchar_t> entry = ini.GetString(main, L"Entry").Trim();
    if (!entry.empty())
        bundles.push_back(entry);
    appendNames(ini.GetString(main, L"Plugs"), bundles);
    for (const auto& name : bundles) {
        const TString<wchar_t> section = L"Bundle." + name;
        if (ini.HasSection(section))
            appendNames(ini.GetString(section, L"GipDep"), m_gipFilterList);
    }
}

} // namespace UIKit
