#include "appearance/Appearance.h"

#include "appearance/IPack.h"
#include "appearance/TextExcerpt.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"
#include "xml/ErrorSink.h"

#include "Toolkit/Directory.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <algorithm>

namespace UIKit {

using Toolkit::LogError;
using Toolkit::LogInfo;

TString<wchar_t> Appearance::CmdLine_OptionAppearance;
TString<wchar_t> Appearance::CmdLine_OptionCulture;

Appearance::Appearance()
{
}

Appearance::~Appearance() = default;

bool Appearance::Init()
{
    return Init(CmdLine_OptionAppearance, CmdLine_OptionCulture);
}

bool Appearance::Init(const TString<wchar_t>& pack, const TString<wchar_t>& culture)
{
    TK_LOG(LogInfo) << "Appearances are initializing ...";
    m_packList.clear();
    m_currentPackIndex = -1;
    m_culture.Reset();
    m_culture.OrderPreferences(culture);
    const TString<char> dir = Toolkit::PathManager::Instance().GetAppearancesDir();
    if (!listPacks(dir)) {
        TK_LOG(LogError) << "No appearance pack found under <" << dir << ">";
        return false;
    }
    const int named = indexOfPack(pack);
    if (named < 0 && !pack.empty() && !m_packList.empty())
        TK_LOG(LogError) << "No appearance pack is named <" << pack << ">: using <" << m_packList.front()
                         << "> instead";
    m_currentPackIndex = std::max(named, 0);
    TK_LOG(LogInfo) << "Selected appareance pack is #" << m_currentPackIndex;
    return initFromFirstUsable(unsigned(m_currentPackIndex));
}

// A pack that cannot be opened or has no languages (a junk file, a name the
// file system cannot give back) must not keep the host from starting while
// another pack is there: the packs after it, then those before it, are tried.
bool Appearance::initFromFirstUsable(unsigned int first)
{
    const size_t count = m_packList.size();
    for (size_t tried = 0; tried < count; ++tried) {
        const unsigned int index = unsigned((first + tried) % count);
        if (InitFromPack(index))
            return true;
        if (tried + 1 < count)
            TK_LOG(LogError) << "The pack <" << m_packList[index] << "> cannot be used: trying <"
                             << m_packList[(index + 1) % count] << "> instead";
    }
    if (count == 0)
        return InitFromPack(first);
    TK_LOG(LogError) << "None of the " << count << " appearance packs can be used";
    return false;
}

// The "*.ar" entries of the appearances directory, sorted by code point.
bool Appearance::listPacks(const TString<char>& dir)
{
    if (!Toolkit::PathManager::DirExists(dir) || !Toolkit::Directory::EnumFilePaths(m_packList, dir, L"*.ar")) {
        m_packList.clear();
        return false;
    }
    std::sort(m_packList.begin(), m_packList.end());
    return true;
}

// The last pack whose name without ".ar" equals name ignoring case; -1 when none does.
int Appearance::indexOfPack(const TString<wchar_t>& name) const
{
    int found = -1;
    for (size_t i = 0; i < m_packList.size(); ++i) {
        const auto& entry = m_packList[i];
        if (TString<wchar_t>(entry.substr(0, entry.size() - 3)).compareNoCase(name) == 0)
            found = int(i);
    }
    return found;
}

bool Appearance::InitFromPack(unsigned int index)
{
    if (index >= m_packList.size()) {
        TK_LOG(LogError) << "The pack index <" << index << "> is not in the current valid range!";
        m_currentPackIndex = -1;
        return false;
    }
    m_currentPackIndex = int(index);
    m_packPath = Toolkit::UTF8::ToUNICODE(Toolkit::PathManager::Instance().GetAppearancesDir());
    Toolkit::PathManager::AppendPath(m_packPath, m_packList[index]);
    m_pack = IPack::Open(m_packPath);
    if (!m_pack) {
        TK_LOG(LogError) << "The pack <" << m_packPath << "> cannot be opened";
        m_packPath.clear();
        return false;
    }
    // A pack that cannot be listed is as empty as one without cultures.
    if (!LoadCulturesList() || m_culture.GetCultures().empty()) {
        ErrorSink::Report(TextExcerpt::Name(m_packList[index]), 0,
                          "No languages definitions for appearance pack <" + TextExcerpt::Name(m_packPath) + ">");
        return false;
    }
    UseDefaultCulture();
    return true;
}

const IPack* Appearance::pack() const
{
    return m_currentPackIndex >= 0 && !m_packPath.empty() ? m_pack.get() : nullptr;
}

bool Appearance::IsArchivePack() const
{
    return m_pack && m_pack->IsArchive();
}

bool Appearance::ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes)
{
    const IPack* selected = pack();
    if (!selected || !selected->ReadEntry(name + L".xml", bytes) || bytes.empty()) {
        bytes.clear();
        return false;
    }
    // A directory pack hands out a terminated text, as it always has.
    if (!selected->IsArchive())
        bytes.push_back(0);
    return true;
}

wxImage Appearance::GetGraphic(const TString<wchar_t>& name)
{
    const wxImage* cached = m_images.Find(name);
    return cached ? *cached : LoadGraphic(name);
}

bool Appearance::ReadGraphic(const TString<wchar_t>& name, wxImage& image)
{
    image = GetGraphic(name);
    // Only images the pack has are cached.
    return m_images.Find(name) != nullptr;
}

wxImage Appearance::LoadGraphic(const TString<wchar_t>& name)
{
    const wxImage image = pack() ? m_images.Load(*pack(), name) : wxImage();
    // Not cached, so that the next request tries the pack again.
    return image.IsOk() ? image : wxImage(128, 128, true);
}

int Appearance::LoadGraphics(const TString<wchar_t>& path)
{
    return pack() ? m_images.LoadMatching(*pack(), path) : -1;
}

Toolkit::smart_ptr<ImageCtrl> Appearance::ImageCtrlWithIdentifier(Toolkit::smart_ptr<ImageDescriptor> descriptor,
                                                                  const wxSize& size)
{
    return m_imageCtrls.Get(m_images, descriptor, size);
}

void Appearance::ImageCtrlKey(const TString<wchar_t>& identifier, const wxSize& size, const unsigned int margins[4],
                              TString<wchar_t>& key)
{
    ImageCtrlCache::Key(identifier, size, margins, key);
}

const TString<wchar_t>& Appearance::GetStr(const TString<wchar_t>& key) const
{
    return m_culture.Strings().Get(key.empty() ? TString<char>() : Toolkit::UTF8::ToUTF8(key));
}

bool Appearance::IsStrExist(const TString<wchar_t>& key) const
{
    return m_culture.Strings().Contains(Toolkit::UTF8::ToUTF8(key));
}

const TString<wchar_t>& Appearance::GetAddStr(const TString<char>& key)
{
    return m_culture.Strings().GetOrAdd(key);
}

const TString<wchar_t>& Appearance::GetAddStr(const TString<wchar_t>& key)
{
    return m_culture.Strings().GetOrAdd(Toolkit::UTF8::ToUTF8(key));
}

bool Appearance::LoadCulturesList()
{
    if (!Toolkit::PathManager::Exists(m_packPath)) {
        m_culture.Reset();
        TK_LOG(LogError) << "The pack main entry <" << m_packPath << "> doesn't exist!";
        return false;
    }
    return m_culture.LoadCulturesList(m_pack.get());
}

Toolkit::smart_ptr<Toolkit::CultureInfo> Appearance::FindCultureByName(const TString<wchar_t>& name) const
{
    return m_culture.FindByName(name);
}

void Appearance::UseCulture(const Toolkit::smart_ptr<Toolkit::CultureInfo>& culture)
{
    m_culture.UseCulture(pack(), culture);
}

void Appearance::UseDefaultCulture()
{
    m_culture.UseDefaultCulture(pack());
}

bool Appearance::LoadStringsDefinitions()
{
    return m_culture.LoadStringsDefinitions(pack());
}

bool Appearance::LoadStringsDefinitions(Toolkit::smart_ptr<Toolkit::CultureInfo> culture)
{
    return m_culture.LoadStringsDefinitions(pack(), culture);
}

TString<wchar_t> Appearance::ExtractNativeNameFromHeaderFileStringRessources(const TString<wchar_t>& name)
{
    return m_culture.ExtractNativeName(pack(), name);
}

} // namespace UIKit
