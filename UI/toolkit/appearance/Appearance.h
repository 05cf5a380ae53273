#pragma once
// The active appearance pack and what comes out of it: description files,
// images (decoded once, cached by file name), image controls (cached by
// image, size and margins), the pack's cultures and the string table of the
// culture in use. Packs are the "*.ar" entries, zip archives or
// directories, of the appearances directory.
//
// GUI thread only; no locks. Nothing is ever evicted from the caches, and
// they survive switching packs.
#include "appearance/StringTable.h"
#include "module/Singleton.h"
#include "xml/IResourceProvider.h"

#include "Toolkit/CultureInfo.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/gdicmn.h>
#include <wx/image.h>

#include <map>
#include <vector>

namespace UIKit {

class ImageCtrl;
class ImageDescriptor;
class PackReader;

class Appearance : public Singleton<Appearance>, public IResourceProvider {
public:
    using Cultures = std::vector<Toolkit::smart_ptr<Toolkit::CultureInfo>>;

    // Pack and culture asked for on the command line; the host fills them
    // before Init.
    static TString<wchar_t> CmdLine_OptionAppearance;
    static TString<wchar_t> CmdLine_OptionCulture;

    Appearance();
    ~Appearance() override;
    Appearance(const Appearance&) = delete;
    Appearance& operator=(const Appearance&) = delete;

    // Finds the packs, orders the preferred cultures, selects a pack and
    // loads it; true when a pack with at least one culture was loaded.
    bool Init();
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
    const TString<wchar_t>& GetStr(const TString<char>& key) const;
    const TString<wchar_t>& GetStr(const TString<wchar_t>& key) const;
    bool IsStrExist(const TString<char>& key) const override;
    bool IsStrExist(const TString<wchar_t>& key) const;
    const TString<wchar_t>& GetAddStr(const TString<char>& key) override;
    const TString<wchar_t>& GetAddStr(const TString<wchar_t>& key);

    bool LoadCulturesList();
    void GetCultures(Cultures& out) const { out = m_cultures; }
    Toolkit::smart_ptr<Toolkit::CultureInfo> GetCurrentCulture() const { return m_currentCulture; }
    void GetCurrentCultureName(TString<wchar_t>& out) const;
    Toolkit::smart_ptr<Toolkit::CultureInfo> FindCultureByName(const TString<wchar_t>& name) const;
    void SetCulturesPreferedOrder(const std::vector<TString<wchar_t>>& order) { m_preferredCultures = order; }
    const std::vector<TString<wchar_t>>& GetCulturesPreferedOrder() const { return m_preferredCultures; }
    void SetAsFirstPreferedLanguage(const TString<wchar_t>& name);
    void GetCultureFromUserPreferences(TString<wchar_t>& out) const;
    void SetCultureToUserPreferences(const TString<wchar_t>& name);
    TString<wchar_t> GetSystemLang() const;
    void UseCulture(const Toolkit::smart_ptr<Toolkit::CultureInfo>& culture);
    void UseDefaultCulture();
    bool LoadStringsDefinitions();
    bool LoadStringsDefinitions(Toolkit::smart_ptr<Toolkit::CultureInfo> culture);
    void ParseStringsDefinitions(const TString<wchar_t>& line);
    TString<wchar_t> ExtractNativeNameFromHeaderFileStringRessources(const TString<wchar_t>& name);

    const TString<wchar_t>& GetPackPath() const { return m_packPath; }
    bool IsArchivePack() const { return m_archive; }
    const std::vector<TString<wchar_t>>& GetPackList() const { return m_packList; }
    int GetCurrentPackIndex() const { return m_currentPackIndex; }

private:
    // A pack is selected and its entry exists.
    bool hasPack() const;
    PackReader pack() const;
    TString<wchar_t> parseOrigin() const;

    // The file and line that ParseStringsDefinitions is reading, for its messages.
    struct ParseOrigin {
        const TString<wchar_t>* file = nullptr;
        size_t line = 0;
    };

    std::map<TString<wchar_t>, wxImage> m_graphics;
    TString<wchar_t> m_packPath;
    bool m_archive = false;
    Cultures m_cultures;
    Toolkit::smart_ptr<Toolkit::CultureInfo> m_currentCulture;
    std::vector<TString<wchar_t>> m_preferredCultures;
    StringTable m_strings;
    std::vector<TString<wchar_t>> m_packList;
    int m_currentPackIndex = -1;
    std::map<TString<wchar_t>, Toolkit::smart_ptr<ImageCtrl>> m_imageCtrls;
    // Reused by every image-control lookup so that a cache hit allocates nothing.
    TString<wchar_t> m_keyBuffer;
    ParseOrigin m_parseOrigin;
    const TString<char> m_preferenceSection;
    const TString<char> m_preferenceKey;
};

} // namespace UIKit
