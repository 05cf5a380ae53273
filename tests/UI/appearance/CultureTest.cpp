#include "AppearanceTestSupport.h"

#include "appearance/CultureRules.h"

#include "Preferences/AppPreferences.h"

using appearancetest::AppearanceTest;
using testsupport::LogCapture;
using UIKit::CultureRules;
using Names = std::vector<TString<wchar_t>>;

namespace {

CultureRules::Cultures culturesNamed(const Names& names)
{
    CultureRules::Cultures cultures;
    for (const auto& name : names)
        cultures.push_back(Toolkit::make_smart<Toolkit::CultureInfo>(name, L""));
    return cultures;
}

std::string text(const Names& names)
{
    std::string out;
    for (const auto& n : names)
        out += std::string(n.begin(), n.end()) + " ";
    return out;
}

std::string languageFile(const std::string& culture, const std::string& text)
{
    return appearancetest::LanguageFile(culture, culture + " native", {"LB_TEXT \"" + text + "\""});
}

} // namespace

TEST(CultureRulesTest, ChoosesExactlyThenByFallbackInPreferenceOrder)
{
    struct Case {
        Names preferred;
        Names pack;
        std::wstring chosen; // empty: none
    };
    const Case cases[] = {
        {{L"fr-CA"}, {L"en", L"fr"}, L"fr"},
        {{L"fr-FR"}, {L"fr", L"fr-FR"}, L"fr-FR"},
        {{L"FR-ca"}, {L"fr-CA", L"fr"}, L"fr-CA"},          // names compare ignoring case
        {{L"fr-CA", L"en"}, {L"en", L"fr"}, L"fr"},         // a fallback of the first beats an exact second
        {{L"pt-BR"}, {L"pt-PT", L"pt"}, L"pt"},             // only the neutral culture is a fallback
        {{L"pt-BR"}, {L"pt-PT"}, L""},
        {{L"zh-CN"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hans"},
        {{L"zh-SG"}, {L"zh-Hant", L"zh-CHS"}, L"zh-CHS"},
        {{L"zh-TW"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hant"},
        {{L"zh-HK"}, {L"zh-CHT", L"zh-Hans"}, L"zh-CHT"},
        {{L"zh"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hant"},
        {{L"zh-CHS"}, {L"zh-Hant", L"zh-Hans"}, L"zh-Hans"}, // old and new script names pair directly
        {{L"zh-Hans"}, {L"zh-CHS"}, L"zh-CHS"},
        {{L"zh-CHT"}, {L"zh-Hant"}, L"zh-Hant"},
        {{L"zh-Hant"}, {L"zh-CHS", L"zh-CHT"}, L"zh-CHT"},
        {{L"zh-CN"}, {L"zh-CHS", L"zh-Hans"}, L"zh-Hans"},   // the last fallback in pack order wins
        {{L"zh-CN"}, {L"zh"}, L""},
        {{L"de"}, {L"en", L"fr"}, L""},
        {{L"C", L"es", L"fr"}, {L"en", L"fr"}, L"fr"},
        {{}, {L"en"}, L""},
        {{L"en"}, {}, L""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(text(c.preferred) + "/ " + text(c.pack));
        const auto chosen = CultureRules::Choose(c.preferred, culturesNamed(c.pack));
        EXPECT_EQ(chosen ? chosen->GetName() : TString<wchar_t>(), c.chosen);
    }
}

TEST(CultureRulesTest, LocaleNamesAndPreferenceOrder)
{
    const std::pair<const char*, const wchar_t*> locales[] = {
        {"fr_FR.UTF-8", L"fr-FR"}, {"en_US", L"en-US"},         {"C", L"C"},
        {"POSIX", L"POSIX"},       {"zh_CN.GB2312", L"zh-CN"},  {"ca_ES_VALENCIA.UTF-8", L"ca-ES"},
        {"_x_y", L"_x_y"},         {"de_DE@euro", L"de-DE@euro"}, {"", L""},
    };
    for (const auto& [locale, code] : locales)
        EXPECT_EQ(CultureRules::CodeFromLocaleName(locale), code) << locale;

    struct Move {
        Names before;
        std::wstring name;
        Names after;
    };
    const Move moves[] = {
        {{L"en", L"es", L"fr"}, L"fr", {L"fr", L"en", L"es"}},
        {{L"en", L"es", L"fr"}, L"de-DE", {L"de-DE", L"en", L"es", L"fr"}},
        {{L"en", L"es"}, L"EN", {L"EN", L"en", L"es"}}, // exact comparison
        {{L"", L"en"}, L"", {L"", L"", L"en"}},          // an empty name is added all the same
    };
    for (const auto& m : moves) {
        Names list = m.before;
        CultureRules::MoveToFront(list, m.name);
        EXPECT_EQ(list, m.after) << text(m.before);
    }
}

TEST_F(AppearanceTest, CulturePreferenceOrderAtInitFollowsSystemUserAndCommandLine)
{
    WritePack("p.ar", {{"strings.fr/main.rc", languageFile("fr", "fr")},
                       {"strings.it/main.rc", languageFile("it", "it")},
                       {"strings.en/main.rc", languageFile("en", "en")}});
    EXPECT_EQ(m_appearance->GetCulturesPreferedOrder(), (Names{L"en", L"es", L"fr"}));
    EXPECT_EQ(m_appearance->GetSystemLang(), L"C");
    {
        LogCapture log;
        ASSERT_TRUE(m_appearance->Init());
        EXPECT_EQ(m_appearance->GetCulturesPreferedOrder(), (Names{L"C", L"en", L"es", L"fr"}));
        EXPECT_TRUE(log.Contains(L"Operating System Language: C"));
        EXPECT_TRUE(log.Contains(L"\nLanguages in the Preference Order: C, en, es, fr"));
        EXPECT_TRUE(log.Contains(L"\n Cultures in the current pack: en, fr, it"));
        EXPECT_TRUE(log.Contains(L"Default Culture Selected is 'en' ."));
        EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_TEXT")), L"en");
    }

    m_appearance->SetCultureToUserPreferences(L"it");
    TString<wchar_t> stored;
    m_appearance->GetCultureFromUserPreferences(stored);
    EXPECT_EQ(stored, L"it");
    {
        UIKit::Appearance fresh;
        LogCapture log;
        ASSERT_TRUE(fresh.Init());
        EXPECT_EQ(fresh.GetCulturesPreferedOrder(), (Names{L"it", L"C", L"en", L"es", L"fr"}));
        EXPECT_TRUE(log.Contains(L"Culture/Language from user preferences: it"));
        EXPECT_EQ(fresh.GetStr(TString<char>("LB_TEXT")), L"it");
        UIKit::Appearance::Cultures cultures;
        fresh.GetCultures(cultures);
        ASSERT_EQ(cultures.size(), 3u);
        EXPECT_EQ(cultures[0]->GetName(), L"it");
        EXPECT_EQ(cultures[0]->GetNativeName(), L"it native");
    }
    {
        UIKit::Appearance fresh;
        UIKit::Appearance::CmdLine_OptionCulture = L"fr-BE";
        LogCapture log;
        ASSERT_TRUE(fresh.Init());
        EXPECT_EQ(fresh.GetCulturesPreferedOrder(), (Names{L"fr-BE"}));
        EXPECT_TRUE(log.Contains(L"Culture/Language from command line parameters: fr-BE"));
        EXPECT_EQ(fresh.GetStr(TString<char>("LB_TEXT")), L"fr");
    }
}

TEST_F(AppearanceTest, SpecificCultureStringsOverrideTheirParentLoadedOnce)
{
    WritePack("p.ar", {{"strings.fr/main.rc", appearancetest::LanguageFile("fr", "Français",
                                                                           {"LB_A \"fr a\"", "LB_B \"fr b\"",
                                                                            "broken in fr"})},
                       {"strings.fr-FR/main.rc", appearancetest::LanguageFile("fr-FR", "Français (France)",
                                                                              {"LB_B \"fr-FR b\""})},
                       {"strings.en/main.rc", languageFile("en", "en")}});
    struct Case {
        std::wstring preferred;
        std::wstring chosen;
        std::wstring a, b;
    };
    const Case cases[] = {
        {L"fr-FR", L"fr-FR", L"fr a", L"fr-FR b"},
        {L"fr-CA", L"fr", L"fr a", L"fr b"},
        {L"fr", L"fr", L"fr a", L"fr b"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.preferred.begin(), c.preferred.end()));
        LogCapture log;
        InitWithCulture(c.preferred);
        TString<wchar_t> name;
        m_appearance->GetCurrentCultureName(name);
        EXPECT_EQ(name, c.chosen);
        EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_A")), c.a);
        EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_B")), c.b);
        EXPECT_EQ(log.Count(L"broken in fr"), 1u) << "the parent's files are read once";
    }

    // A culture the pack does not know, or none, falls back to the default choice.
    LogCapture log;
    m_appearance->UseCulture(Toolkit::make_smart<Toolkit::CultureInfo>(L"en", L""));
    m_appearance->UseCulture({});
    EXPECT_EQ(log.Count(L"Default Culture Selected is 'fr' ."), 2u);
    m_appearance->UseCulture(m_appearance->FindCultureByName(L"en"));
    EXPECT_TRUE(log.Contains(L"From now, use Culture: 'en'."));
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_TEXT")), L"en");
    EXPECT_TRUE(m_appearance->FindCultureByName(L"EN").IsNull()) << "found by exact name only";
}

TEST_F(AppearanceTest, NoPreferredCultureInThePackLeavesTheStringsAsTheyWere)
{
    WritePack("p.ar", {{"strings.en/main.rc", languageFile("en", "en")},
                       {"strings.fr/main.rc", languageFile("fr", "fr")},
                       {"strings.de-AT/main.rc", languageFile("de-AT", "de")}});
    InitWithCulture(L"fr");
    LogCapture log;
    m_appearance->SetCulturesPreferedOrder({L"de"});
    m_appearance->UseDefaultCulture();
    EXPECT_EQ(log.Count(L"Unable to load a Culture/Language!"), 1u) << "de-AT is not a fallback of de";
    EXPECT_EQ(m_appearance->GetCurrentCulture()->GetName(), L"fr");
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_TEXT")), L"fr");

    // Only de on the command line: Init still loads the pack, with no strings.
    UIKit::Appearance fresh;
    UIKit::Appearance::CmdLine_OptionCulture = L"de";
    EXPECT_TRUE(fresh.Init());
    EXPECT_TRUE(fresh.GetCurrentCulture().IsNull());
    EXPECT_EQ(fresh.GetStr(TString<char>("LB_TEXT")), L"Missing Label key");
    EXPECT_EQ(fresh.LoadStringsDefinitions(Toolkit::smart_ptr<Toolkit::CultureInfo>()), false);
    EXPECT_TRUE(log.Contains(L"doesn't contains the requested culture !"));
}
