#include "AppearanceTestSupport.h"

#include "appearance/IPack.h"

using appearancetest::AppearanceTest;
using appearancetest::ErrorCapture;
using appearancetest::Files;
using testsupport::LogCapture;
namespace fs = std::filesystem;
using Names = std::vector<TString<wchar_t>>;

namespace {

std::string bytesOf(const UIKit::IPack& pack, const wchar_t* name)
{
    std::vector<unsigned char> bytes{'x'};
    if (!pack.ReadEntry(name, bytes))
        return bytes.empty() ? "<failed>" : "<failed, bytes left>";
    return std::string(bytes.begin(), bytes.end());
}

} // namespace

TEST(PackTest, DirectoryAndZipPacksReadTheSameTree)
{
    const Files files{
        {"strings.en/main.rc", "x"}, {"strings.fr/b.rc", "x"}, {"strings.fr/a.rc", "x"}, {"strings.de/", ""},
        {"sub/strings.it/x.rc", "x"}, {"ok.xml", "<Control/>"}, {"empty.xml", ""},
        {"lines.txt", "\xEF\xBB\xBFone\r\ntwo\rthr\xC3\xA9""e\n\nfive"}, {"graphics/a.png", "A"},
        {"graphics/b.png", "B"},
    };
    testsupport::TempDir temp;
    for (const bool zip : {false, true}) {
        SCOPED_TRACE(zip ? "zip" : "directory");
        const fs::path path = temp.Path() / (zip ? "z.ar" : "d.ar");
        if (zip)
            appearancetest::WriteZipPack(path, files);
        else
            appearancetest::WriteDirPack(path, files);
        const auto pack = UIKit::IPack::Open(path.wstring());
        ASSERT_TRUE(pack);

        Names names;
        ASSERT_TRUE(pack->ListFolders(L"strings.*", names));
        EXPECT_EQ(names, (Names{L"strings.de", L"strings.en", L"strings.fr"})) << "top-level folders only";
        ASSERT_TRUE(pack->ListFiles(L"strings.fr", names));
        EXPECT_EQ(names, (Names{L"strings.fr/a.rc", L"strings.fr/b.rc"}));
        pack->ListFiles(L"../d.ar", names);
        EXPECT_TRUE(names.empty()) << "no listing outside the pack";
        EXPECT_EQ(pack->FindFiles(L"graphics/*", names), zip ? 1 : -1) << "only an archive searches";
        EXPECT_EQ(names, zip ? (Names{L"graphics/a.png", L"graphics/b.png"}) : Names{});

        const std::pair<const wchar_t*, std::string> reads[] = {
            {L"ok.xml", "<Control/>"}, {L"empty.xml", ""},       {L"missing.xml", "<failed>"},
            {L"../d.ar/ok.xml", "<failed>"}, {L"/etc/passwd", "<failed>"}, {L"graphics", "<failed>"},
        };
        for (const auto& [name, expected] : reads)
            EXPECT_EQ(bytesOf(*pack, name), expected) << std::wstring(name);

        std::vector<std::wstring> lines;
        EXPECT_TRUE(pack->ReadLines(L"lines.txt", [&](size_t n, const TString<wchar_t>& line) {
            lines.push_back(std::to_wstring(n) + L":" + line);
            return n < 4;
        }));
        EXPECT_EQ(lines, (std::vector<std::wstring>{L"1:one", L"2:two", L"3:thr\u00e9e", L"4:"}))
            << "decoded, numbered, stopped when asked";
        EXPECT_FALSE(pack->ReadLines(L"missing.txt", [](size_t, const TString<wchar_t>&) { return true; }));
    }
    EXPECT_FALSE(UIKit::IPack::Open((temp.Path() / "none.ar").wstring())) << "neither a file nor a directory";

    // A zip pack is opened once: an entry it refuses is logged once however much is read.
    LogCapture log;
    appearancetest::WriteZipPack(temp.Path() / "evil.ar", {{"../x", "x"}, {"ok.xml", "<Control/>"}});
    const auto evil = UIKit::IPack::Open((temp.Path() / "evil.ar").wstring());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(bytesOf(*evil, L"ok.xml"), "<Control/>");
    EXPECT_EQ(log.Count(L"evil.ar"), 1u) << log.Dump();
}

// Decoding images and choosing strings are the cache's and the culture
// tests' part, for both forms; here the appearance reads either form alike.
TEST_F(AppearanceTest, DirectoryPackAndItsZippedTwinGiveTheSameContent)
{
    for (const auto& dir : {appearancetest::TestPackDir().parent_path(), appearancetest::ZippedPacksDir()}) {
        SCOPED_TRACE(dir.string());
        UseAppearancesDir(dir);
        UIKit::Appearance appearance;
        ASSERT_TRUE(appearance.Init(L"", L"fr-CA"));
        EXPECT_EQ(appearance.IsArchivePack(), dir == appearancetest::ZippedPacksDir());
        std::vector<unsigned char> bytes;
        ASSERT_TRUE(appearance.ReadDescriptor(L"dashboard", bytes));
        if (!appearance.IsArchivePack()) {
            ASSERT_EQ(bytes.back(), 0) << "a directory pack terminates the text";
            bytes.pop_back();
        }
        EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
                  testsupport::ReadFile(appearancetest::TestPackDir() / "dashboard.xml"));
        EXPECT_EQ(appearance.GetStr(TString<char>("LB_COLOUR")), L"Couleur (Canada)");
    }
}

TEST_F(AppearanceTest, PackSelectionSortsNamesAndTheLastMatchWins)
{
    for (const char* name : {"b.ar", "dark.ar", "A.ar", "Dark.ar", "dark.ar.bak"})
        WritePack(name, {{"strings.en/main.rc", "LB_A \"a\"\n"}});
    struct Case {
        std::wstring option;
        int index;
        bool fallback; // logged as a fallback to the first pack
    };
    const Case cases[] = {
        {L"", 0, false}, {L"DARK", 3, false}, {L"b", 2, false}, {L"a", 0, false},
        {L"nothing", 0, true}, {L"dark.ar", 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.option.begin(), c.option.end()));
        UIKit::Appearance appearance;
        LogCapture log;
        ASSERT_TRUE(appearance.Init(c.option, L""));
        EXPECT_EQ(appearance.GetPackList(), (Names{L"A.ar", L"Dark.ar", L"b.ar", L"dark.ar"}));
        EXPECT_EQ(appearance.GetCurrentPackIndex(), c.index);
        EXPECT_EQ(log.Count(L"No appearance pack is named <" + c.option + L">: using <A.ar> instead"),
                  c.fallback ? 1u : 0u);
    }

    // The command-line options are Init()'s defaults.
    UIKit::Appearance::CmdLine_OptionAppearance = L"b";
    EXPECT_TRUE(m_appearance->Init());
    UIKit::Appearance::CmdLine_OptionAppearance.clear();
    EXPECT_EQ(m_appearance->GetCurrentPackIndex(), 2);
}

TEST_F(AppearanceTest, PacksThatCannotBeUsedAreReportedOnce)
{
    ErrorCapture errors;
    LogCapture log;
    EXPECT_FALSE(m_appearance->Init(L"", L"")) << "no pack at all";
    EXPECT_EQ(log.Count(L"The pack index <0> is not in the current valid range!"), 1u);

    log.Clear();
    UseAppearancesDir(Appearances() / "missing");
    EXPECT_FALSE(m_appearance->Init(L"", L""));
    EXPECT_EQ(log.Count(L"No appearance pack found under <" + (Appearances() / "missing").wstring() + L">"), 1u);
    UseAppearancesDir(Appearances());

    // A file that is not a zip archive cannot be opened, so the next pack is
    // tried; a pack without "strings." folder has no languages, named in a report.
    WritePack("plain.ar", {{"dashboard.xml", "<Control/>"}});
    m_temp.Write("appearances/broken.ar", "this is not a zip archive");
    log.Clear();
    EXPECT_FALSE(m_appearance->Init(L"", L"")) << "broken.ar sorts first";
    EXPECT_EQ(log.Count(L"The pack <" + (Appearances() / "broken.ar").wstring() + L"> cannot be opened"), 1u);
    EXPECT_EQ(log.Count(L"The pack <broken.ar> cannot be used: trying <plain.ar> instead"), 1u);
    EXPECT_EQ(log.Count(L"None of the 2 appearance packs can be used"), 1u);
    const fs::path plain = Appearances() / "plain.ar";
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"plain.ar: No languages definitions for appearance pack <" +
                                                       plain.string() + ">"});

    // A pack removed after it was listed reads nothing.
    fs::remove_all(Appearances() / "plain.ar");
    log.Clear();
    EXPECT_FALSE(m_appearance->InitFromPack(1));
    EXPECT_EQ(log.Count(L"The pack <" + plain.wstring() + L"> cannot be opened"), 1u);
    EXPECT_TRUE(m_appearance->GetPackPath().empty());
    std::vector<unsigned char> bytes;
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"dashboard", bytes));
}
