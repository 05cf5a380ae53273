#include "appearance/Appearance.h"

#include "appearance/CultureRules.h"
#include "appearance/LanguageLine.h"
#include "appearance/PackReader.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

#include "Preferences/AppPreferences.h"
#include "Toolkit/Directory.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/RegExpException.h"
#include "Toolkit/UTF8.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstring>

namespace UIKit {

using Toolkit::LogError;
using Toolkit::LogInfo;

TString<wchar_t> Appearance::CmdLine_OptionAppearance;
TString<wchar_t> Appearance::CmdLine_OptionCulture;

namespace {

TString<wchar_t> joined(const std::vector<TString<wchar_t>>& names)
{
    TString<wchar_t> text;
    for (const auto& name : names)
        text += (text.empty() ? L"" : L", ") + name;
    return text;
}

TString<wchar_t> cultureNames(const Appearance::Cultures& cultures)
{
    std::vector<TString<wchar_t>> names;
    for (const auto& culture : cultures)
        names.push_back(culture->GetName());
    return joined(names);
}

// Appends a decimal number without going through a stream.
template <class N>
void appendNumber(TString<wchar_t>& text, N value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(digits, end);
}

} // namespace

Appearance::Appearance()
    : m_preferredCultures{L"en", L"es", L"fr"}, m_preferenceSection("Appearance"), m_preferenceKey("Culture")
{
}

Appearance::~Appearance() = default;

bool Appearance::Init()
{
    TK_LOG(LogInfo) << "Appearances are initializing ...";
    m_packList.clear();
    m_currentPackIndex = -1;
    m_currentCulture.reset();
    m_cultures.clear();

    const TString<wchar_t> system = GetSystemLang();
    TK_LOG(LogInfo) << "Operating System Language: " << system;
    SetAsFirstPreferedLanguage(system);
    TString<wchar_t> user;
    GetCultureFromUserPreferences(user);
    if (!user.empty()) {
        TK_LOG(LogInfo) << "Culture/Language from user preferences: " << user;
        SetAsFirstPreferedLanguage(user);
    }
    if (!CmdLine_OptionCulture.empty()) {
        m_preferredCultures.clear();
        TK_LOG(LogInfo) << "Culture/Language from command line parameters: " << CmdLine_OptionCulture;
        m_preferredCultures.push_back(CmdLine_OptionCulture);
    }
    TK_LOG(LogInfo) << "\nLanguages in the Preference Order: " << joined(m_preferredCultures);

    const TString<char> dir = Toolkit::PathManager::Instance().GetAppearancesDir();
    std::vector<TString<wchar_t>> names;
    if (!Toolkit::PathManager::DirExists(dir) || !Toolkit::Directory::EnumFilePaths(names, dir, L"*.ar")) {
        TK_LOG(LogError) << "No appearance pack found under <" << dir << ">";
        return false;
    }
    std::sort(names.begin(), names.end());
    // The last pack whose name matches the option wins; none leaves the first.
    m_currentPackIndex = 0;
    for (size_t i = 0; i < names.size(); ++i) {
        m_packList.push_back(names[i]);
        if (TString<wchar_t>(names[i].substr(0, names[i].size() - 3)).compareNoCase(CmdLine_OptionAppearance) == 0)
            m_currentPackIndex = int(i);
    }
    TK_LOG(LogInfo) << "Selected appareance pack is #" << m_currentPackIndex;
    return InitFromPack(unsigned(m_currentPackIndex));
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
    if (Toolkit::PathManager::FileExists(m_packPath)) {
        m_archive = true;
    } else if (Toolkit::PathManager::DirExists(m_packPath)) {
        m_archive = false;
    } else {
        TK_LOG(LogError) << "The pack <" << m_packPath << "> does'nt exist!";
        m_packPath.clear();
        return false;
    }
    // A pack that cannot be listed at all has already been reported.
    if (!LoadCulturesList())
        return false;
    if (m_cultures.empty()) {
        TK_LOG(LogError) << "No languages definitions for appearance pack <" << m_packPath << ">";
        return false;
    }
    UseDefaultCulture();
    return true;
}

bool Appearance::hasPack() const
{
    return m_currentPackIndex >= 0 && !m_packPath.empty();
}

PackReader Appearance::pack() const
{
    return PackReader(m_packPath, m_archive);
}

bool Appearance::ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes)
{
    return hasPack() && pack().ReadDescriptor(name, bytes);
}

wxImage Appearance::GetGraphic(const TString<wchar_t>& name)
{
    const auto cached = m_graphics.find(name);
    return cached != m_graphics.end() ? cached->second : LoadGraphic(name);
}

bool Appearance::ReadGraphic(const TString<wchar_t>& name, wxImage& image)
{
    image = GetGraphic(name);
    // Only images the pack has are cached.
    return m_graphics.count(name) != 0;
}

wxImage Appearance::LoadGraphic(const TString<wchar_t>& name)
{
    const wxImage image = hasPack() ? pack().ReadGraphic(name) : wxImage();
    // Not cached, so that the next request tries the pack again.
    if (!image.IsOk())
        return wxImage(128, 128, true);
    return m_graphics.emplace(name, image).first->second;
}

int Appearance::LoadGraphics(const TString<wchar_t>& path)
{
    if (!hasPack())
        return -1;
    return pack().ReadGraphics(path, [this](const TString<wchar_t>& name, const wxImage& image) {
        m_graphics.emplace(name, image);
    });
}

Toolkit::smart_ptr<ImageCtrl> Appearance::ImageCtrlWithIdentifier(Toolkit::smart_ptr<ImageDescriptor> descriptor,
                                                                  const wxSize& size)
{
    if (!descriptor || descriptor->GetName().empty())
        return {};
    unsigned int margins[4];
    ImageCtrl::MarginsOf(*descriptor, margins);
    ImageCtrlKey(descriptor->GetName(), size, margins, m_keyBuffer);
    const auto cached = m_imageCtrls.find(m_keyBuffer);
    if (cached != m_imageCtrls.end())
        return cached->second;

    // Images are loaded when descriptors are read; none is loaded here.
    const auto image = m_graphics.find(descriptor->GetName());
    if (image == m_graphics.end()) {
        TK_LOG(LogError) << "Missing image with identifier : " << descriptor->GetName();
        return {};
    }
    Toolkit::smart_ptr<ImageCtrl> made(
        new ImageCtrl(image->second, size, margins[0], margins[1], margins[2], margins[3]));
    m_imageCtrls.emplace(m_keyBuffer, made);
    return made;
}

void Appearance::ImageCtrlKey(const TString<wchar_t>& identifier, const wxSize& size, const unsigned int margins[4],
                              TString<wchar_t>& key)
{
    key.clear();
    key += identifier;
    key += L'[';
    appendNumber(key, size.x);
    key += L'x';
    appendNumber(key, size.y);
    key += L',';
    for (int i = 0; i < 4; ++i) {
        if (i > 0)
            key += L'.';
        appendNumber(key, margins[i]);
    }
    key += L']';
}

const TString<wchar_t>& Appearance::GetStr(const TString<char>& key) const
{
    return m_strings.Get(key);
}

const TString<wchar_t>& Appearance::GetStr(const TString<wchar_t>& key) const
{
    return key.empty() ? m_strings.Get(TString<char>()) : m_strings.Get(Toolkit::UTF8::ToUTF8(key));
}

bool Appearance::IsStrExist(const TString<char>& key) const
{
    return m_strings.Contains(key);
}

bool Appearance::IsStrExist(const TString<wchar_t>& key) const
{
    return m_strings.Contains(Toolkit::UTF8::ToUTF8(key));
}

const TString<wchar_t>& Appearance::GetAddStr(const TString<char>& key)
{
    return m_strings.GetOrAdd(key);
}

const TString<wchar_t>& Appearance::GetAddStr(const TString<wchar_t>& key)
{
    return m_strings.GetOrAdd(Toolkit::UTF8::ToUTF8(key));
}

bool Appearance::LoadCulturesList()
{
    m_cultures.clear();
    if (!Toolkit::PathManager::Exists(m_packPath)) {
        TK_LOG(LogError) << "The pack main entry <" << m_packPath << "> doesn't exist!";
        return false;
    }
    std::vector<TString<wchar_t>> found;
    if (!pack().ListCultureCodes(found))
        return false;
    // Preferred cultures first, in preference order; the others as listed.
    for (const auto& preferred : m_preferredCultures) {
        const auto code = std::find(found.begin(), found.end(), preferred);
        if (code == found.end())
            continue;
        m_cultures.push_back(Toolkit::make_smart<Toolkit::CultureInfo>(
            *code, ExtractNativeNameFromHeaderFileStringRessources(*code)));
        found.erase(code);
    }
    for (const auto& code : found)
        m_cultures.push_back(Toolkit::make_smart<Toolkit::CultureInfo>(
            code, ExtractNativeNameFromHeaderFileStringRessources(code)));
    TK_LOG(LogInfo) << "\n Cultures in the current pack: " << cultureNames(m_cultures);
    return true;
}

void Appearance::GetCurrentCultureName(TString<wchar_t>& out) const
{
    out = m_currentCulture ? m_currentCulture->GetName() : TString<wchar_t>();
}

Toolkit::smart_ptr<Toolkit::CultureInfo> Appearance::FindCultureByName(const TString<wchar_t>& name) const
{
    return CultureRules::FindByName(m_cultures, name);
}

void Appearance::SetAsFirstPreferedLanguage(const TString<wchar_t>& name)
{
    CultureRules::MoveToFront(m_preferredCultures, name);
}

void Appearance::GetCultureFromUserPreferences(TString<wchar_t>& out) const
{
    out.clear();
    const auto preferences = Preferences::AppPreferences::Open(m_preferenceSection);
    if (preferences && !preferences->Get(m_preferenceKey, out))
        out.clear();
}

void Appearance::SetCultureToUserPreferences(const TString<wchar_t>& name)
{
    const auto preferences = Preferences::AppPreferences::Open(m_preferenceSection);
    if (preferences)
        preferences->Set(m_preferenceKey, name);
}

TString<wchar_t> Appearance::GetSystemLang() const
{
    const char* locale = std::setlocale(LC_ALL, nullptr);
    // Mixed categories answer "LC_CTYPE=...;..."; the messages' language is the one that counts.
    if (locale && std::strchr(locale, '='))
        locale = std::setlocale(LC_MESSAGES, nullptr);
    return CultureRules::CodeFromLocaleName(locale ? locale : "");
}

void Appearance::UseDefaultCulture()
{
    const auto chosen = CultureRules::Choose(m_preferredCultures, m_cultures);
    if (!chosen) {
        TK_LOG(LogError) << "Unable to load a Culture/Language!";
        return;
    }
    m_currentCulture = chosen;
    TK_LOG(LogInfo) << "Default Culture Selected is '" << chosen->GetName() << "' .";
    LoadStringsDefinitions();
}

void Appearance::UseCulture(const Toolkit::smart_ptr<Toolkit::CultureInfo>& culture)
{
    if (!culture || std::find(m_cultures.begin(), m_cultures.end(), culture) == m_cultures.end()) {
        UseDefaultCulture();
        return;
    }
    m_currentCulture = culture;
    TK_LOG(LogInfo) << "From now, use Culture: '" << culture->GetName() << "'.";
    LoadStringsDefinitions();
}

bool Appearance::LoadStringsDefinitions()
{
    m_strings.Clear();
    TString<wchar_t> name;
    GetCurrentCultureName(name);
    const TString<wchar_t> parent = name.substr(0, name.find(L'-'));
    // The specific culture's strings go on top of its neutral parent's.
    const bool parentLoaded = LoadStringsDefinitions(FindCultureByName(parent));
    const bool ownLoaded = parent != name && LoadStringsDefinitions(m_currentCulture);
    return parentLoaded || ownLoaded;
}

bool Appearance::LoadStringsDefinitions(Toolkit::smart_ptr<Toolkit::CultureInfo> culture)
{
    if (!culture) {
        TK_LOG(LogError) << "The current pack <" << m_packPath << "> doesn't contains the requested culture !";
        return false;
    }
    if (!hasPack())
        return false;
    pack().ReadLanguageLines(culture->GetName(),
                             [this](const TString<wchar_t>& file, size_t lineNumber, const TString<wchar_t>& line) {
                                 m_parseOrigin = {&file, lineNumber};
                                 ParseStringsDefinitions(line);
                                 return true;
                             });
    m_parseOrigin = {};
    return true;
}

void Appearance::ParseStringsDefinitions(const TString<wchar_t>& line)
{
    static const wchar_t* const c_error = L"Error while parsing Language String Definition : ";
    try {
        const LanguageLine parsed = LanguageLine::Parse(line);
        if (parsed.kind == LanguageLine::Definition) {
            m_strings.Set(parsed.key, parsed.text);
        } else if (parsed.kind == LanguageLine::EmptyKey) {
            TK_LOG(LogError) << c_error << line << parseOrigin();
            TK_LOG(LogError) << "  ,the parsed key value was empty!";
        } else if (parsed.kind == LanguageLine::NoMatch) {
            TK_LOG(LogError) << c_error << line << parseOrigin();
            TK_LOG(LogError) << "  ,the data line was ignored as it did no match to the expected definition!";
        }
    } catch (const Toolkit::RegExpException& e) {
        TK_LOG(LogError) << c_error << line << parseOrigin();
        TK_LOG(LogError) << "  returned error : " << e.GetMessage();
    }
}

// Where the line being parsed comes from, when it comes from a file.
TString<wchar_t> Appearance::parseOrigin() const
{
    if (!m_parseOrigin.file)
        return {};
    TString<wchar_t> origin = L" (" + *m_parseOrigin.file + L", line ";
    appendNumber(origin, m_parseOrigin.line);
    return origin + L")";
}

TString<wchar_t> Appearance::ExtractNativeNameFromHeaderFileStringRessources(const TString<wchar_t>& name)
{
    TString<wchar_t> nativeName;
    if (!hasPack())
        return nativeName;
    try {
        // A file's first header counts; a later file's header overrides it.
        pack().ReadLanguageLines(name, [&nativeName](const TString<wchar_t>&, size_t, const TString<wchar_t>& line) {
            return !LanguageLine::ParseHeader(line, nativeName);
        });
    } catch (const Toolkit::RegExpException& e) {
        TK_LOG(LogError) << "Cannot read the culture header of <" << name << ">: " << e.GetMessage();
    }
    return nativeName;
}

} // namespace UIKit
