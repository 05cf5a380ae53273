// Languages: which culture is chosen and loaded, and the strings its files
// define, with their broken lines reported.
#include "AppearanceTestSupport.h"

#include "appearance/CultureChoice.h"
#include "appearance/CultureRules.h"
#include "appearance/LanguageLine.h"

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
    // chosen: empty: none
    struct Case { Names preferred; Names pack; std::wstring chosen; };
    const Case cases[] = {
        {{L"fr-CA"}, {L"en", L"fr"}, L"fr"},
        {{L"FR-ca"}, {L"fr-CA", L"fr"}, L"fr-CA"},     // names compare ignoring case
        {{L"fr-CA", L"en"}, {L"en", L"fr"}, L"fr"},    // a fallback of the first beats an exact second
        {{L"pt-BR"}, {L"pt-PT", L"pt"}, L"pt"},        // only the neutral culture is a fallback
        {{L"zh-TW"}, {L"zh-Hans", L"zh-Hant"}, L"zh-Hant"},
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

    struct Move { Names before; std::wstring name; Names after; };
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
    struct Case { std::wstring user, requested; Names order; };
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
    // chosen: the culture, LB_A and LB_B; reports: the fr file's bad line, once per load of fr
    struct Case { std::wstring requested, chosen; size_t reports; };
    const Case cases[] = {
        {L"fr-FR", L"fr-FR|fr a|fr-FR b", 1}, {L"", L"en|Missing Label key|Missing Label key", 0},
        {L"de", L"|Missing Label key|Missing Label key", 0}, // de-AT is no fallback of de
    };
    for (const auto& c : cases) {
        appearancetest::ErrorCapture errors;
        UIKit::Appearance appearance;
        ASSERT_TRUE(appearance.Init(L"", c.requested)) << "a pack without a usable culture still loads";
        TString<wchar_t> name;
        appearance.GetCurrentCultureName(name);
        EXPECT_EQ(name + L"|" + appearance.GetStr(TString<char>("LB_A")) + L"|" +
                      appearance.GetStr(TString<char>("LB_B")),
                  c.chosen);
        EXPECT_EQ(errors.Lines().size(), c.reports) << std::string(c.requested.begin(), c.requested.end());
    }

    appearancetest::ErrorCapture errors;
    ASSERT_TRUE(m_appearance->Init(L"", L"fr"));
    UIKit::Appearance::Cultures cultures;
    m_appearance->GetCultures(cultures);
    std::vector<std::wstring> names;
    for (const auto& culture : cultures)
        names.push_back(culture->GetName() + L"=" + culture->GetNativeName());
    EXPECT_EQ(names, (std::vector<std::wstring>{L"fr=Français", L"de-AT=de-AT native", L"en=en native",
                                                L"fr-FR=Français (France)"})) << "preferred first, then as listed";

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

TEST_F(AppearanceTest, StringsParseDefinitionsAndLogBrokenLines)
{
    // key: defined key, or null; logged: the line is logged as broken (the
    // wording is the language-file test's)
    struct Case { std::wstring line; const char* key; std::wstring text; bool logged; };
    const Case cases[] = {
        {L"LB_A \"Hello\"", "LB_A", L"Hello", false},
        {L"LB_Q \"He said \"hi\" twice\"", "LB_Q", L"He said \"hi\" twice", false},
        {L"LB_N \"one\\ntwo\\n\"", "LB_N", L"one\ntwo\n", false},
        {L"LB_T \"keep\\tthis\"", "LB_T", L"keep\\tthis", false},
        {L"some words LB_W \"last key wins\"", "LB_W", L"last key wins", false},
        {L"LB_K \"a\\\\nb\"", "LB_K", L"a\\\nb", false}, // escapes read left to right
        {L"AaAa \"1\"", "AaAa", L"1", false}, // keys that shared one hash under the old table hash
        {L"AaFH \"2\"", "AaFH", L"2", false},
        {L"\"a\" LB_Z \"b\"", nullptr, L"", true},
        {L"LB_X \"unterminated", nullptr, L"", true},
        {L"", nullptr, L"", false},
        {L"  END", nullptr, L"", false},
        {L"// a comment \"with quotes", nullptr, L"", false},
        {L"LB_C no quotes // trailing comment", nullptr, L"", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.line.begin(), c.line.end()));
        LogCapture log;
        m_appearance->ParseStringsDefinitions(c.line);
        EXPECT_EQ(m_appearance->GetStr(TString<char>(c.key ? c.key : "LB_Z")), c.key ? c.text : L"Missing Label key");
        EXPECT_EQ(log.Size(), c.logged ? 2u : 0u) << log.Dump();
    }
}

TEST(LanguageLineTest, CultureHeaders)
{
    // nativeName: null: not a header
    struct Case { const wchar_t* line; const wchar_t* nativeName; };
    const Case cases[] = {
        {L"// CULTURE fr Français", L"Français"},
        {L"//CULTURE\tfr-CA   Français (Canada)  ", L"Français (Canada)  "},
        {L"// CULTURE en", L""},
        {L"// CULTURE 12 X", nullptr},
        {L"// culture fr X", nullptr},
        {L"  // CULTURE fr X", nullptr},
    };
    for (const auto& c : cases) {
        TString<wchar_t> name(L"unchanged");
        EXPECT_EQ(UIKit::LanguageLine::ParseHeader(c.line, name), c.nativeName != nullptr) << std::wstring(c.line);
        EXPECT_EQ(name, c.nativeName ? c.nativeName : L"unchanged") << std::wstring(c.line);
    }
}

TEST_F(AppearanceTest, StringsLookupsOfMissingEmptyAndAddedKeys)
{
    m_appearance->ParseStringsDefinitions(L"LB_HELLO \"Hello\"");
    EXPECT_EQ(m_appearance->GetStr(TString<wchar_t>(L"LB_HELLO")), L"Hello");
    EXPECT_EQ(m_appearance->GetStr(TString<char>("lb_hello")), L"Missing Label key") << "keys are case-sensitive";

    // An unknown key read through GetAddStr becomes its own text until the next reload.
    EXPECT_EQ(m_appearance->GetAddStr(TString<wchar_t>(L"Ünïcode")), L"Ünïcode");
    EXPECT_TRUE(m_appearance->IsStrExist(TString<char>("\xC3\x9Cn\xC3\xAF" "code")));
    EXPECT_EQ(m_appearance->GetAddStr(TString<char>("LB_HELLO")), L"Hello") << "a defined key keeps its text";

    // A returned text stays valid while the table grows.
    const TString<wchar_t>& hello = m_appearance->GetStr(TString<char>("LB_HELLO"));
    for (int i = 0; i < 2000; ++i)
        m_appearance->GetAddStr(TString<char>("KEY_" + std::to_string(i)));
    EXPECT_EQ(hello, L"Hello");

    m_appearance->LoadStringsDefinitions();
    EXPECT_FALSE(m_appearance->IsStrExist(TString<wchar_t>(L"Ünïcode"))) << "a reload drops added keys";
}

TEST_F(AppearanceTest, LanguageFilesWithBrokenLinesLoadTheRestAndNameFileAndLine)
{
    WritePack("p.ar",
              {{"strings.en/a.rc",
                appearancetest::LanguageFile("en", "English", {"LB_ONE \"one\"", "broken line", "LB_TWO \"two\""})},
               {"strings.en/b.rc", "LB_TWO \"two from b\"\r\n\"no key\"\n"},
               {"strings.en/noextension", "LB_THREE \"never read\"\n"}});
    appearancetest::ErrorCapture errors;
    ASSERT_TRUE(m_appearance->Init(L"", L"en"));
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_ONE")), L"one");
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_TWO")), L"two from b") << "a later file replaces";
    EXPECT_FALSE(m_appearance->IsStrExist(TString<char>("LB_THREE"))) << "only files named *.* are read";
    EXPECT_EQ(errors.Lines(),
              (std::vector<std::string>{"strings.en/a.rc:5: Error while parsing Language String Definition :     "
                                        "broken line: the data line was ignored as it did no match to the "
                                        "expected definition!",
                                        "strings.en/b.rc:2: Error while parsing Language String Definition : "
                                        "\"no key\": the parsed key value was empty!"}));
}
