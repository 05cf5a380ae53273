#include "Toolkit/IniFile.h"

#include "Toolkit/UTF8.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

using Toolkit::IniFile;

const char* const c_bundle =
    "\xEF\xBB\xBF; bundle configuration\n"
    "top = level\n"
    "[MainBundle]\n"
    "  Entry =  Core  \r\n"
    "# a comment\n"
    "\n"
    "[ MainBundle.Lite ] ; trailing comment\n"
    "Entry=Lite\n"
    "Padded=\"  keep  \"\n"
    "Equation=a=b ; c\n"
    "Negative= -7 \n"
    "NotNumber=4x\n"
    "Huge=99999999999999999999\n"
    "[Bundle.Core]\n"
    "GipDep=Browser,Settings\n"
    "gipdep=Replaced\n"
    "Name=\xC3\x89t\xC3\xA9\n"
    "\xEF\xBB\xBF \xEF\xBB\xBFJoined = second file\n";

TEST(IniFileTest, ReadsSectionsAndKeysIgnoringCaseAndBlanks)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    IniFile ini;
    ASSERT_TRUE(ini.Open(TString<char>(dir.Write("conf.ini", c_bundle).string())));
    EXPECT_EQ(log.Size(), 0u) << log.Dump();
    EXPECT_TRUE(ini.GetMalformedLines().empty());

    const struct {
        const wchar_t *section, *key, *value;
    } cases[] = {
        {L"", L"top", L"level"},
        {L"mainbundle", L"ENTRY", L"Core"},
        {L"MainBundle.Lite", L"Entry", L"Lite"},
        {L"MainBundle.Lite", L"Padded", L"  keep  "},
        {L"MainBundle.Lite", L"Equation", L"a=b ; c"},
        {L"Bundle.Core", L"GipDep", L"Replaced"},
        {L"Bundle.Core", L"Name", L"\u00C9t\u00E9"},
        {L"Bundle.Core", L"Joined", L"second file"},
        {L"Bundle.Sms", L"GipDep", L"default"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ini.GetString(c.section, c.key, L"default"), c.value) << testing::PrintToString(std::wstring(c.key));
    for (const auto& [key, value] : {std::pair{L"Negative", -7}, std::pair{L"NotNumber", -1}, std::pair{L"Huge", -1}})
        EXPECT_EQ(ini.GetInt(L"MainBundle.Lite", key, -1), value) << std::wstring(key);
}

TEST(IniFileTest, MalformedLinesAreSkippedAndReportedOncePerFile)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    const auto path = dir.Write("bad.ini", "[Good]\n"
                                           "a=1\n"
                                           "no equals sign\n"
                                           "[Unclosed\n"
                                           "=no key\n"
                                           "b=2\n"
                                           "[]\n"
                                           "[Sec] junk\n"
                                           "bad=\xFF\n" +
                                               std::string("nul=a\0b\n", 8) + "c=3\n");
    IniFile ini;
    ASSERT_TRUE(ini.Open(TString<char>(path.string())));
    EXPECT_EQ(ini.GetMalformedLines(), (std::vector<size_t>{3, 4, 5, 7, 8, 9, 10}));
    EXPECT_EQ(ini.GetString(L"Good", L"c"), L"3"); // bad headers do not open sections
    EXPECT_FALSE(ini.HasKey(L"Good", L"nul"));
    EXPECT_EQ(log.Count(L"bad.ini:3: malformed line skipped: \"no equals sign\" (6 more, at line 4 5 7 8 9 10)"), 1u)
        << log.Dump();

    log.Clear();
    IniFile quiet;
    ASSERT_TRUE(quiet.Open(TString<char>(path.string()), IniFile::Report::Quiet));
    EXPECT_EQ(log.Size(), 0u);

    EXPECT_FALSE(quiet.Open(TString<char>(dir.Str() + "/missing.ini")));
    EXPECT_EQ(log.Count(L"missing.ini"), 1u);
}

// Each limit drops only what lies past it, with one entry naming the file
// and the limit; small limits stand in for the real ones.
TEST(IniFileTest, LimitsDropWhatLiesPastThemAndSayWhich)
{
    testsupport::TempDir dir;
    std::string manyKeys = "[S]\n";
    for (int i = 0; i < 80000; ++i)
        manyKeys += "k" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    const std::string longValue = "[S]\na=1\nlong=" + std::string(100, 'x') + "\nb=2\n";
    const IniFile::Limits defaults;
    const struct {
        const char* name;
        std::string content;
        IniFile::Limits limits;
        std::vector<std::string> present, absent;
        const wchar_t* logged;
    } cases[] = {
        {"80000 keys within the default limits", manyKeys, defaults, {"k0", "k79999"}, {}, nullptr},
        {"more keys than allowed", manyKeys, IniFile::Limits{defaults.fileBytes, 50, 3}, {"k0", "k2"}, {"k3"},
         L"keys.ini:5: more keys than the limit of 3; this key and the ones after it are ignored"},
        {"value longer than a line may be", longValue, IniFile::Limits{defaults.fileBytes, 50, 3}, {"a", "b"}, {"long"},
         L"keys.ini:3: line longer than the limit of 50 bytes skipped"},
        {"file larger than allowed: whole lines only", "[S]\na=1\nb=22\nc=3333333\n", IniFile::Limits{20, 50, 3},
         {"a", "b"}, {"c"},
         L"keys.ini is larger than the limit of 20 bytes"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto path = dir.Write("keys.ini", c.content);
        testsupport::LogCapture log;
        IniFile ini;
        ini.SetLimits(c.limits);
        ASSERT_TRUE(ini.Open(TString<char>(path.string())));
        for (const auto& key : c.present)
            EXPECT_TRUE(ini.HasKey(L"S", Toolkit::UTF8::ToUNICODE(key))) << key;
        for (const auto& key : c.absent)
            EXPECT_FALSE(ini.HasKey(L"S", Toolkit::UTF8::ToUNICODE(key))) << key;
        EXPECT_EQ(log.Size(), c.logged ? 1u : 0u) << log.Dump();
        EXPECT_TRUE(!c.logged || log.Contains(c.logged)) << log.Dump();
    }
}

TEST(IniFileTest, SetRefusesWhatCouldNotBeReadBack)
{
    testsupport::LogCapture log;
    IniFile ini;
    const struct {
        const wchar_t *section, *key, *value;
        bool accepted;
    } cases[] = {
        {L"S", L"k", L"  blanks and \"quotes\"  ", true}, {L"S", L"k", L"line\nbreak", false},
        {L"S", L"", L"v", false}, {L"S", L"a=b", L"v", false}, {L"S", L";k", L"v", false},
        {L"S]", L"k", L"v", false}, {L" S", L"k", L"v", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ini.Set(c.section, c.key, c.value), c.accepted) << testing::PrintToString(std::wstring(c.key));
    EXPECT_EQ(log.Size(), 6u) << log.Dump();
}

TEST(IniFileTest, SaveWritesWhatOpenReadsBack)
{
    testsupport::TempDir dir;
    const TString<char> path = dir.Str() + "/out.ini";
    IniFile ini;
    const std::vector<std::pair<std::wstring, std::wstring>> values{
        {L"plain", L"value"}, {L"blanks", L"  padded  "}, {L"quoted", L"\"already quoted\""}, {L"empty", L""},
        {L"hash", L"# not a comment"},
    };
    for (const auto& [key, value] : values)
        ASSERT_TRUE(ini.Set(L"Section", key, value));
    ASSERT_TRUE(ini.SaveAs(path));

    IniFile back;
    ASSERT_TRUE(back.Open(path));
    for (const auto& [key, value] : values)
        EXPECT_EQ(back.GetString(L"section", key), value) << testing::PrintToString(key);
    EXPECT_EQ(back.ToText(), ini.ToText());

    EXPECT_TRUE(back.RemoveKey(L"SECTION", L"PLAIN"));
    EXPECT_FALSE(back.RemoveKey(L"Section", L"plain"));
    ASSERT_TRUE(back.SaveAs(path));
    IniFile again;
    ASSERT_TRUE(again.Open(path));
    EXPECT_TRUE(again.HasKey(L"Section", L"blanks") && !again.HasKey(L"Section", L"plain"));
}

} // namespace
