#include "AppearanceTestSupport.h"

#include "appearance/LanguageLine.h"

using appearancetest::AppearanceTest;
using testsupport::LogCapture;

namespace {

const std::wstring c_error = L"Error while parsing Language String Definition : ";
const std::wstring c_emptyKey = L"  ,the parsed key value was empty!";
const std::wstring c_noMatch = L"  ,the data line was ignored as it did no match to the expected definition!";

} // namespace

TEST_F(AppearanceTest, StringsParseDefinitionsAndReportBrokenLines)
{
    struct Case {
        std::wstring line;
        const char* key;     // defined key, or null
        std::wstring text;   // its text
        std::wstring second; // the second log record, or empty when silent
    };
    const Case cases[] = {
        {L"LB_A \"Hello\"", "LB_A", L"Hello", L""},
        {L"LB_Q \"He said \"hi\" twice\"", "LB_Q", L"He said \"hi\" twice", L""},
        {L"LB_N \"one\\ntwo\\n\"", "LB_N", L"one\ntwo\n", L""},
        {L"LB_T \"keep\\tthis\"", "LB_T", L"keep\\tthis", L""},
        {L"some words LB_W \"last key wins\"", "LB_W", L"last key wins", L""},
        {L"LB_A \"Replaced\"", "LB_A", L"Replaced", L""},
        {L"LB_K \"a\\\\nb\"", "LB_K", L"a\\\nb", L""}, // escapes read left to right
        {L"AaAa \"1\"", "AaAa", L"1", L""}, // keys that shared one hash under the old table hash
        {L"AaFH \"2\"", "AaFH", L"2", L""},
        {L"\"a\" LB_Z \"b\"", nullptr, L"", c_emptyKey},
        {L"LB_X \"unterminated", nullptr, L"", c_noMatch},
        {L"", nullptr, L"", L""},
        {L"  END", nullptr, L"", L""},
        {L"// a comment \"with quotes", nullptr, L"", L""},
        {L"LB_C no quotes // trailing comment", nullptr, L"", L""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.line.begin(), c.line.end()));
        LogCapture log;
        m_appearance->ParseStringsDefinitions(c.line);
        if (c.key) {
            EXPECT_TRUE(m_appearance->IsStrExist(TString<char>(c.key)));
            EXPECT_EQ(m_appearance->GetStr(TString<char>(c.key)), c.text);
        }
        if (c.second.empty()) {
            EXPECT_EQ(log.Size(), 0u) << log.Dump();
            continue;
        }
        const auto entries = log.Entries();
        ASSERT_EQ(entries.size(), 2u) << log.Dump();
        EXPECT_EQ(entries[0].message, c_error + c.line);
        EXPECT_EQ(entries[1].message, c.second);
    }
}

TEST(LanguageLineTest, CultureHeaders)
{
    struct Case {
        const wchar_t* line;
        const wchar_t* nativeName; // null: not a header
    };
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
    WritePack("p.ar", {{"strings.en/a.rc", appearancetest::LanguageFile("en", "English",
                                                                         {"LB_ONE \"one\"", "broken line",
                                                                          "LB_TWO \"two\""})},
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
