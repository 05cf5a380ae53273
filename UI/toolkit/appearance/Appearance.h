#pragma once
#include "module/Export.h"
// The active appearance pack and what comes out of it: description files,
// images (decoded once, cached by file name), image controls (cached by
// image, size and margins), the pack's cultures and the string table of the
// culture in use. Packs are the "*.ar" entries, zip archives or
// directories, of the appearances directory.
//
// The work is done by parts this class owns and delegates to: the selected
// pack (IPack), the two caches (ImageCache, ImageCtrlCache) and the choice
// of culture with its strings (CultureChoice). Data flows one way: the pack
// is read into the caches and the table, and nothing calls back up.
//
// GUI thread only; no locks. Nothing is ever evicted from the caches, and
// they survive switching packs.
#include "appearance/CultureChoice.h"
#include "appearance/ImageCache.h"
#include "appearance/ImageCtrlCache.h"
#include "module/Singleton.h"
#include "xml/IResourceProvider.h"

#include "Toolkit/CultureInfo.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/gdicmn.h>
#include <wx/image.h>

#include <memory>
#include <vector>

namespace UIKit {

class IPack;
class ImageCtrl;
class ImageDescriptor;

class UIKIT_API Appearance : public Singleton<Appearance>, public IResourceProvider {
public:
    using Cultures = CultureChoice::Cultures;

    // Pack and culture asked for on the command line; Init() passes them
    // to Init(pack, culture). Nothing else reads them.
    static TString<wchar_t> CmdLine_OptionAppearance;
    static TString<wchar_t> CmdLine_OptionCulture;

    Appearance();
    ~Appearance() override;
    Appearance(const Appearance&) = delete;
    Appearance& operator=(const Appearance&) = delete;

    // Init with the command-line options.
    bool Init();
    // Finds the packs, orders the preferred cultures (culture, when not
    // empty, is the only one), selects the pack named pack (ignoring case;
    // the first pack, with a log entry naming it, when none is) and loads
    // it; when it cannot be used, the next pack in list order is tried,
    // with a log entry naming both. True when a pack with at least one
    // culture was loaded.
    bool Init(const TString<wchar_t>& pack, const TString<wchar_t>& culture);
    // Selects the pack at index in the pack list and loads its cultures.
    bool InitFromPack(unsigned int index);

    bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) override;
    // The cached image, or LoadGraphic.
    wxImage GetGraphic(const TString<wchar_t>& name);
    // GetGraphic, and whether the pack has the image.
    bool ReadGraphic(const TString<wchar_t>& name, wxImage& image) override;
    // Loads "graphics/<name>" and caches it; a black 128 x 128 image, not
    // cached, when it is missing or not decodable.
    wxImage LoadGraphic(const TString<wchar_t>& name);
    // Caches every image of an archive pack matching "graphics/<path>";
    // the listing's result, -1 for a directory pack.
    int LoadGraphics(const TString<wchar_t>& path);
    // The descriptor's image, already loaded, drawn at size with its
    // margins; shared by every request with the same image, size and margins.
    Toolkit::smart_ptr<ImageCtrl> ImageCtrlWithIdentifier(Toolkit::smart_ptr<ImageDescriptor> descriptor,
                                                          const wxSize& size) override;
    // The image-control cache key: "button.png[120x32,4.4.4.4]".
    static void ImageCtrlKey(const TString<wchar_t>& identifier, const wxSize& size, const unsigned int margins[4],
                             TString<wchar_t>& key);

    // Strings of the current culture; see StringTable for missing keys.
    const TString<wchar_t>& GetStr(const TString<char>& key) const { return m_culture.Strings().Get(key); }
    const TString<wchar_t>& GetStr(const TString<wchar_t>& key) const;
    bool IsStrExist(const TString<char>& key) const override { return m_culture.Strings().Contains(key); }
    bool IsStrExist(const TString<wchar_t>& key) const;
    const TString<wchar_t>& GetAddStr(const TString<char>& key) override;
    const TString<wchar_t>& GetAddStr(const TString<wchar_t>& key);

    bool LoadCulturesList();
    void GetCultures(Cultures& out) const { out = m_culture.GetCultures(); }
    Toolkit::smart_ptr<Toolkit::CultureInfo> GetCurrentCulture() const { return m_culture.GetCurrent(); }
    void GetCurrentCultureName(TString<wchar_t>& out) const { out = m_culture.GetCurrentName(); }
    Toolkit::smart_ptr<Toolkit::CultureInfo> FindCultureByName(const TString<wchar_t>& name) const;
    void SetCulturesPreferedOrder(const std::vector<TString<wchar_t>>& order) { m_culture.SetPreferredOrder(order); }
    const std::vector<TString<wchar_t>>& GetCulturesPreferedOrder() const { return m_culture.GetPreferredOrder(); }
    void SetAsFirstPreferedLanguage(const TString<wchar_t>& name) { m_culture.SetAsFirstPreferred(name); }
    void GetCultureFromUserPreferences(TString<wchar_t>& out) const { out = m_culture.GetUserPreference(); }
    void SetCultureToUserPreferences(const TString<wchar_t>& name) { m_culture.SetUserPreference(name); }
    TString<wchar_t> GetSystemLang() const { return CultureChoice::GetSystemLang(); }
    void UseCulture(const Toolkit::smart_ptr<Toolkit::CultureInfo>& culture);
    void UseDefaultCulture();
    bool LoadStringsDefinitions();
    bool LoadStringsDefinitions(Toolkit::smart_ptr<Toolkit::CultureInfo> culture);
    void ParseStringsDefinitions(const TString<wchar_t>& line) { m_culture.ParseStringsDefinitions(line); }
    TString<wchar_t> ExtractNativeNameFromHeaderFileStringRessources(const TString<wchar_t>& name);

    const TString<wchar_t>& GetPackPath() const { return m_packPath; }
    bool IsArchivePack() const;
    const std::vector<TString<wchar_t>>& GetPackList() const { return m_packList; }
    int GetCurrentPackIndex() const { return m_currentPackIndex; }

private:
    // The selected pack, or null when none is selected.
    const IPack* pack() const;
    bool listPacks(const TString<char>& dir);
    bool initFromFirstUsable(unsigned int first);
    int indexOfPack(const TString<wchar_t>& name) const;

    std::unique_ptr<IPack> m_pack;
    TString<wchar_t> m_packPath;
    std::vector<TString<wchar_t>> m_packList;
    int m_currentPackIndex = -1;
    ImageCache m_images;
    ImageCtrlCache m_imageCtrls;
    CultureChoice m_culture;
};

} // namespace UIKit
