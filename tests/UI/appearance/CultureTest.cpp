#include "AppearanceTestSupport.h"

#include "appearance/CultureChoice.h"
#include "appearance/CultureRules.h"

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
        {{L"fr-CA"}, {L"en", L"fr"}, L"fr"},           {{L"fr-FR"}, {L"fr", L"fr-FR"}, L"fr-FR"},
        {{L"FR-ca"}, {L"fr-CA", L"fr"}, L"fr-CA"},     // names compare ignoring case
        {{L"fr-CA", L"en"}, {L"en", L"fr"}, L"fr"},    // a fallback of the first beats an exact second
        {{L"pt-BR"}, {L"pt-PT", L"pt"}, L"pt"},        // only the neutral culture is a fallback
        {{L"zh-SG"}, {L"zh-Hant", L"zh-CHS"}, L"zh-CHS"}, {{L"zh-TW"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hant"},
        {{L"zh"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hant"},
        {{L"zh-CHS"}, {L"zh-Hant", L"zh-Hans"}, L"zh-Hans"}, // old and new script names pair directly
        {{L"zh-CN"}, {L"zh-CHS", L"zh-Hans"}, L"zh-Hans"}, // the last fallback in pack order wins
        {{L"zh-CN"}, {L"zh"}, L""},                    {{L"C", L"es", L"fr"}, {L"en", L"fr"}, L"fr"},
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
        {"fr_FR.UTF-8", L"fr-FR"}, {"C", L"C"}, {"ca_ES_VALENCIA.UTF-8", L"ca-ES"}, {"_x_y", L"_x_y"},
        {"de_DE@euro", L"de-DE@euro"},
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
        {{L"en", L"es"}, L"EN", {L"EN", L"en", L"es"}}, // exact comparison
        {{L"", L"en"}, L"", {L"", L"", L"en"}},          // an empty name is added all the same
    };
    for (const auto& m : moves) {
        Names list = m.before;
        CultureRules::MoveToFront(list, m.name);
        EXPECT_EQ(list, m.after) << text(m.before);
    }
}

TEST_F(AppearanceTest, PreferenceOrderPutsTheUserBeforeTheSystemAndTheRequestAlone)
{
    EXPECT_EQ(UIKit::CultureChoice::GetSystemLang(), L"C");
    struct Case {
        std::wstring user, requested;
        Names order;
    };
    const Case cases[] = {
        {L"", L"", {L"C", L"en", L"es", L"fr"}},
        {L"it", L"", {L"it", L"C", L"en", L"es", L"fr"}},
        {L"fr", L"", {L"fr", L"C", L"en", L"es"}}, // no duplicate
        {L"it", L"fr-BE", {L"fr-BE"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.user.begin(), c.user.end()));
        UIKit::CultureChoice choice;
        choice.SetUserPreference(c.user);
        LogCapture log;
        choice.OrderPreferences(c.requested);
        EXPECT_EQ(choice.GetPreferredOrder(), c.order);
        EXPECT_EQ(log.Count(L"Culture/Language from user preferences: " + c.user), c.user.empty() ? 0u : 1u);
        EXPECT_EQ(log.Count(L"from command line parameters: " + c.requested), c.requested.empty() ? 0u : 1u);
    }
}

TEST_F(AppearanceTest, ChosenCultureLoadsItsParentOnceThenItsOwnStrings)
{
    WritePack("p.ar", {{"strings.fr/main.rc", appearancetest::LanguageFile("fr", "Français",
                                                                           {"LB_A \"fr a\"", "LB_B \"fr b\"",
                                                                            "broken in fr"})},
                       {"strings.fr-FR/main.rc", appearancetest::LanguageFile("fr-FR", "Français (France)",
                                                                              {"LB_B \"fr-FR b\""})},
                       {"strings.en/main.rc", languageFile("en", "en")},
                       {"strings.de-AT/main.rc", languageFile("de-AT", "de-AT")}});
    struct Case {
        std::wstring requested, chosen, a, b;
        size_t brokenReports; // the fr file's bad line, once per load of fr
    };
    const Case cases[] = {
        {L"fr-FR", L"fr-FR", L"fr a", L"fr-FR b", 1}, {L"fr-CA", L"fr", L"fr a", L"fr b", 1},
        {L"", L"en", L"Missing Label key", L"Missing Label key", 0},
        {L"de", L"", L"Missing Label key", L"Missing Label key", 0}, // de-AT is no fallback of de
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.requested.begin(), c.requested.end()));
        appearancetest::ErrorCapture errors;
        UIKit::Appearance appearance;
        ASSERT_TRUE(appearance.Init(L"", c.requested)) << "a pack without a usable culture still loads";
        TString<wchar_t> name;
        appearance.GetCurrentCultureName(name);
        EXPECT_EQ(name, c.chosen);
        EXPECT_EQ(appearance.GetStr(TString<char>("LB_A")), c.a);
        EXPECT_EQ(appearance.GetStr(TString<char>("LB_B")), c.b);
        EXPECT_EQ(errors.Lines().size(), c.brokenReports);
    }

    appearancetest::ErrorCapture errors;
    ASSERT_TRUE(m_appearance->Init(L"", L"fr"));
    UIKit::Appearance::Cultures cultures;
    m_appearance->GetCultures(cultures);
    std::vector<std::wstring> names;
    for (const auto& culture : cultures)
        names.push_back(culture->GetName() + L"=" + culture->GetNativeName());
    EXPECT_EQ(names, (std::vector<std::wstring>{L"fr=Français", L"de-AT=de-AT native", L"en=en native",
                                                L"fr-FR=Français (France)"}))
        << "preferred first, then as listed";

    // A culture the pack does not know, or none, falls back to the default
    // choice; no default choice keeps the culture and strings in use.
    LogCapture log;
    m_appearance->UseCulture(Toolkit::make_smart<Toolkit::CultureInfo>(L"en", L""));
    m_appearance->UseCulture({});
    EXPECT_EQ(log.Count(L"Default Culture Selected is 'fr' ."), 2u);
    EXPECT_EQ(errors.Lines().size(), 3u) << "each load of fr reports its bad line";
    m_appearance->UseCulture(m_appearance->FindCultureByName(L"en"));
    m_appearance->SetCulturesPreferedOrder({L"de"});
    m_appearance->UseDefaultCulture();
    EXPECT_EQ(log.Count(L"Unable to load a Culture/Language!"), 1u);
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_TEXT")), L"en");
}
