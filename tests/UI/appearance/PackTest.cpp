// Packs as directories and zip archives read alike, chosen by name, and as a
// hostile or careless author makes them: entries, images and lines past
// their limits, packs that cannot be opened, links out of a directory pack,
// control characters in names and lines; the images decoded from them and
// the image controls made of those, cached.
#include "AppearanceTestSupport.h"

#include "appearance/IPack.h"
#include "appearance/ImageCache.h"
#include "appearance/ImageCtrlCache.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

#include <sys/stat.h>

using appearancetest::AppearanceTest;
using appearancetest::ErrorCapture;
using appearancetest::Files;
using testsupport::LogCapture;
using appearancetest::ScopedLimits;
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

const std::string c_english = appearancetest::LanguageFile("en", "English", {"LB_OK \"ok\""});

// The test pack's 4 x 2 PNG with its header claiming width x height.
std::string pngClaiming(uint32_t width, uint32_t height)
{
    std::string png = testsupport::ReadFile(appearancetest::TestPackDir() / "graphics" / "logo.img");
    for (int i = 0; i < 4; ++i) {
        png[size_t(16 + i)] = char(width >> (24 - 8 * i));
        png[size_t(20 + i)] = char(height >> (24 - 8 * i));
    }
    return png;
}

bool hasControlCharacter(const std::string& text)
{
    return std::any_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < 0x20; });
}

bool isBlack128(const wxImage& image)
{
    return image.IsOk() && image.GetSize() == wxSize(128, 128) && image.GetRed(64, 64) == 0 &&
           image.GetGreen(127, 127) == 0 && !image.HasAlpha();
}

Toolkit::smart_ptr<UIKit::ImageDescriptor> descriptor(const wchar_t* name, const wxRect& margin = {4, 4, 4, 4})
{
    return Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), name, margin);
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
    }
}

TEST_F(AppearanceTest, PackSelectionSortsNamesAndTheLastMatchWins)
{
    for (const char* name : {"b.ar", "dark.ar", "A.ar", "Dark.ar", "dark.ar.bak"})
        WritePack(name, {{"strings.en/main.rc", "LB_A \"a\"\n"}});
    // fallback: logged as a fallback to the first pack
    struct Case { std::wstring option; int index; bool fallback; };
    const Case cases[] = {
        {L"", 0, false}, {L"DARK", 3, false}, {L"a", 0, false}, {L"nothing", 0, true}, {L"dark.ar", 0, true}};
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

TEST_F(AppearanceTest, EntriesImagesAndLinesPastTheirLimitsAreRefusedAndReported)
{
    const Files files{
        {"strings.en/main.rc",
         appearancetest::LanguageFile(
             "en", "English", {"LB_OK \"ok\"", "LB_LONG \"" + std::string(120, 'x') + "\"", "LB_AFTER \"after\""})},
        {"dashboard.xml", "<Control>" + std::string(5000, ' ') + "</Control>"}, // inflates past the limit
        {"small.xml", "<Control/>"},
        {"graphics/huge.png", pngClaiming(26000, 26000)},
        {"graphics/wide.png", pngClaiming(9000, 1)},
        {"graphics/logo.png", pngClaiming(4, 2)},
    };
    UIKit::PackLimits limits;
    limits.entryBytes = 2000;
    limits.lineBytes = 100;
    const ScopedLimits scoped(limits);
    for (const bool zip : {false, true}) {
        SCOPED_TRACE(zip ? "zip" : "directory");
        fs::remove_all(Appearances());
        fs::create_directories(Appearances());
        if (zip)
            appearancetest::WriteZipPack(Appearances() / "p.ar", files);
        else
            WritePack("p.ar", files);
        ErrorCapture errors;
        UIKit::Appearance appearance;
        ASSERT_TRUE(appearance.Init(L"", L"en"));
        EXPECT_EQ(appearance.GetStr(TString<char>("LB_OK")), L"ok");
        EXPECT_EQ(appearance.GetStr(TString<char>("LB_AFTER")), L"after") << "the lines after a long one are read";
        EXPECT_FALSE(appearance.IsStrExist(TString<char>("LB_LONG")));
        std::vector<unsigned char> bytes;
        EXPECT_FALSE(appearance.ReadDescriptor(L"dashboard", bytes));
        EXPECT_TRUE(appearance.ReadDescriptor(L"small", bytes));
        EXPECT_EQ(appearance.GetGraphic(L"huge.png").GetSize(), wxSize(128, 128));
        EXPECT_EQ(appearance.GetGraphic(L"wide.png").GetSize(), wxSize(128, 128));
        const std::string image = " pixels, more than the 8192 per side or 16777216 in all allowed for one image: not "
                                  "decoded";
        EXPECT_EQ(errors.Lines(), (std::vector<std::string>{
                      "strings.en/main.rc:5: line longer than 100 bytes, the limit for one line: skipped",
                      "dashboard.xml: entry holds more than 2000 bytes, the limit for one entry: not read",
                      "graphics/huge.png: image declares 26000x26000" + image,
                      "graphics/wide.png: image declares 9000x1" + image}));
    }
}

TEST_F(AppearanceTest, PacksThatCannotBeOpenedAreSkippedForTheNextOne)
{
    UIKit::PackLimits limits;
    limits.packEntries = 3;
    const ScopedLimits scoped(limits);
    // Both sort before default.ar: a name that is not UTF-8, and a zip pack past the entry limit.
    appearancetest::WriteDirPack(Appearances() / "a\xff\xfe.ar", {{"x/", ""}});
    appearancetest::WriteZipPack(Appearances() / "abc.ar",
                                 {{"strings.en/a.rc", c_english}, {"b", ""}, {"c", ""}, {"d", ""}});
    WritePack("default.ar", {{"strings.en/main.rc", c_english}});
    ErrorCapture errors;
    LogCapture log;
    ASSERT_TRUE(m_appearance->Init(L"", L"")) << log.Dump();
    EXPECT_EQ(fs::path(std::wstring(m_appearance->GetPackPath())).filename(), "default.ar");
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_OK")), L"ok");
    EXPECT_EQ(log.Count(L"cannot be used: trying <"), 2u) << log.Dump();
    ASSERT_EQ(errors.Lines().size(), 1u);
    EXPECT_NE(errors.Lines()[0].find("pack holds 4 files, more than 3, the limit for one pack: not used"),
              std::string::npos)
        << errors.Lines()[0];
}

TEST_F(AppearanceTest, DirectoryPackReadsNothingOutsideItselfNorFromSpecialFiles)
{
    const fs::path outside = m_temp.Write("outside/secret.rc", "LB_SECRET \"secret\"\nsecret broken line\n");
    WritePack("p.ar", {{"strings.en/main.rc", c_english}, {"shared/in.txt", "LB_IN \"inside\"\n"}});
    const fs::path pack = Appearances() / "p.ar";
    fs::create_symlink(outside, pack / "strings.en" / "out.rc");
    fs::create_symlink("../shared/in.txt", pack / "strings.en" / "in.rc");
    fs::create_directory_symlink(outside.parent_path(), pack / "strings.de");
    fs::create_symlink("/dev/zero", pack / "strings.en" / "zero.rc");
    ASSERT_EQ(mkfifo((pack / "strings.en" / "fifo.rc").c_str(), 0600), 0);

    ErrorCapture errors;
    LogCapture log;
    ASSERT_TRUE(m_appearance->Init(L"", L"en"));
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_OK")), L"ok");
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_IN")), L"inside") << "a link inside the pack is followed";
    EXPECT_FALSE(m_appearance->IsStrExist(TString<char>("LB_SECRET")));
    m_appearance->UseCulture(m_appearance->FindCultureByName(L"de"));
    EXPECT_FALSE(m_appearance->IsStrExist(TString<char>("LB_SECRET"))) << "nor through a linked folder";
    // Each culture's files are read twice: for its native name, then its strings.
    EXPECT_EQ(log.Count(L"<strings.en/out.rc> of the pack <" + pack.wstring() + L"> leads outside the pack: not read"),
              2u);
    EXPECT_EQ(log.Count(L"<strings.de> of the pack <" + pack.wstring() + L"> leads outside the pack: not read"), 2u);
    EXPECT_EQ(log.Count(L"secret"), 0u) << "nothing of the outside file is logged";
    EXPECT_TRUE(errors.Lines().empty());

    // Special files are not listed as language files, nor opened when asked for.
    const auto direct = UIKit::IPack::Open(pack.wstring());
    std::vector<unsigned char> bytes;
    for (const wchar_t* name :
         {L"strings.en/fifo.rc", L"strings.en/zero.rc", L"strings.en/out.rc", L"strings.de/secret.rc"})
        EXPECT_FALSE(direct->ReadEntry(name, bytes)) << std::wstring(name);
}

TEST_F(AppearanceTest, NamesAndLinesFromThePackCannotForgeLogLines)
{
    const std::string line = "junk \x1b]0;title\x07 and " + std::string(100, 'y');
    appearancetest::WriteZipPack(Appearances() / "p.ar",
                                 {{"strings.en/main.rc", c_english}, {"strings.en/bad\nE [x] forged.rc", line}});
    ErrorCapture errors;
    ASSERT_TRUE(m_appearance->Init(L"", L"en"));
    ASSERT_EQ(errors.Lines().size(), 1u);
    const std::string& report = errors.Lines()[0];
    EXPECT_EQ(report, "strings.en/bad\\nE [x] forged.rc:1: Error while parsing Language String Definition : "
                      "junk \\x1b]0;title\\x07 and " + std::string(40, 'y') +
                          "...: the data line was ignored as it did no match to the expected definition!");
    EXPECT_FALSE(hasControlCharacter(report));
}

TEST(ImageCacheTest, DecodesOnceAndReportsEachBadImageOnce)
{
    const std::string png = testsupport::ReadFile(appearancetest::TestPackDir() / "graphics" / "logo.img");
    const appearancetest::Files files{
        {"graphics/logo.png", png}, {"graphics/other.img", png}, {"graphics/broken.png", "not a png"}};
    testsupport::TempDir temp;
    for (const bool zip : {false, true}) {
        SCOPED_TRACE(zip ? "zip" : "directory");
        const fs::path path = temp.Path() / (zip ? "z.ar" : "d.ar");
        zip ? appearancetest::WriteZipPack(path, files) : appearancetest::WriteDirPack(path, files);
        const auto pack = UIKit::IPack::Open(path.wstring());
        ErrorCapture errors;
        UIKit::ImageCache cache;
        const wxImage logo = cache.Load(*pack, L"logo.png");
        EXPECT_EQ(logo.GetSize(), wxSize(4, 2));
        EXPECT_TRUE(cache.Add(L"logo.png", wxImage(1, 1)).IsSameAs(logo)) << "a cached image is not replaced";
        EXPECT_EQ(cache.Load(*pack, L"other.img").GetSize(), wxSize(4, 2)) << "PNG whatever the extension";

        for (const wchar_t* name : {L"broken.png", L"broken.png", L"nothing.png", L"nothing.png"})
            EXPECT_FALSE(cache.Load(*pack, name).IsOk()) << std::wstring(name);
        EXPECT_EQ(cache.Size(), 2u) << "bad images are not cached";
        EXPECT_EQ(errors.Lines(), (std::vector<std::string>{"graphics/broken.png: image cannot be decoded as PNG",
                                                            "graphics/nothing.png: image missing from the pack"}));

        UIKit::ImageCache preloaded;
        EXPECT_EQ(preloaded.LoadMatching(*pack, L"*"), zip ? 1 : -1) << "only an archive preloads";
        EXPECT_EQ(preloaded.Find(L"other.img") != nullptr, zip) << "cached under the file name";
    }
}

TEST_F(AppearanceTest, MissingImagesAreBlackLookedForAgainAndTheCacheOutlivesThePack)
{
    const appearancetest::Files strings{{"strings.en/main.rc", "LB_A \"a\"\n"}};
    WritePack("a.ar", strings);
    WritePack("b.ar", strings);
    ErrorCapture errors;
    ASSERT_TRUE(m_appearance->Init(L"a", L"en"));
    const wxImage first = m_appearance->GetGraphic(L"button.png");
    EXPECT_TRUE(isBlack128(first));
    EXPECT_FALSE(m_appearance->GetGraphic(L"button.png").IsSameAs(first)) << "a fresh image, not cached";
    EXPECT_TRUE(m_appearance->ImageCtrlWithIdentifier(descriptor(L"button.png"), wxSize(9, 9)).IsNull());
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"graphics/button.png: image missing from the pack"});

    fs::create_directories(Appearances() / "a.ar" / "graphics");
    fs::copy_file(appearancetest::TestPackDir() / "graphics" / "button.png",
                  Appearances() / "a.ar" / "graphics" / "button.png");
    const wxImage button = m_appearance->GetGraphic(L"button.png");
    EXPECT_EQ(button.GetSize(), wxSize(30, 30)) << "the next request tries the pack again";
    EXPECT_FALSE(m_appearance->ImageCtrlWithIdentifier(descriptor(L"button.png"), wxSize(9, 9)).IsNull());

    ASSERT_TRUE(m_appearance->InitFromPack(1));
    EXPECT_TRUE(m_appearance->GetGraphic(L"button.png").IsSameAs(button)) << "the cache outlives the pack";
    EXPECT_EQ(m_appearance->LoadGraphics(L"*"), -1) << "directory packs preload nothing";

    UseAppearancesDir(appearancetest::ZippedPacksDir());
    ASSERT_TRUE(m_appearance->Init(L"", L"en"));
    EXPECT_EQ(m_appearance->LoadGraphics(L"*.png"), 1);
    EXPECT_EQ(m_appearance->GetGraphic(L"alpha.png").GetAlpha(7, 0), 252);
}

TEST(ImageCtrlCacheTest, SharedExactlyWhenImageSizeAndMarginsAgree)
{
    UIKit::ImageCache images;
    UIKit::ImageCtrlCache ctrls;
    LogCapture log;
    EXPECT_TRUE(ctrls.Get(images, {}, wxSize(10, 10)).IsNull());
    EXPECT_TRUE(ctrls.Get(images, descriptor(L""), wxSize(10, 10)).IsNull());
    EXPECT_EQ(log.Size(), 0u) << "a null or unnamed descriptor is not a fault";
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(ctrls.Get(images, descriptor(L"ghost.png"), wxSize(10, 10)).IsNull());
    EXPECT_EQ(log.Count(L"Missing image with identifier : ghost.png"), 1u) << "logged once";

    images.Add(L"button.png", wxImage(30, 30));
    // margin: top, left, right, bottom
    struct Request { wxSize size; wxRect margin; };
    const Request requests[] = {
        {{120, 32}, {4, 4, 4, 4}}, {{120, 32}, {4, 4, 4, 5}}, {{120, 32}, {4, 4, 5, 4}}, {{120, 32}, {4, 5, 4, 4}},
        {{120, 32}, {5, 4, 4, 4}}, {{121, 32}, {4, 4, 4, 4}}, {{120, 33}, {4, 4, 4, 4}}, {{32, 120}, {4, 4, 4, 4}},
    };
    std::vector<Toolkit::smart_ptr<UIKit::ImageCtrl>> made;
    for (const auto& r : requests) {
        auto ctrl = ctrls.Get(images, descriptor(L"button.png", r.margin), r.size);
        ASSERT_FALSE(ctrl.IsNull());
        for (const auto& other : made)
            EXPECT_NE(ctrl.get(), other.get()) << "a control of another size or margins was handed out";
        // The same request from another descriptor object shares the control.
        EXPECT_EQ(ctrls.Get(images, descriptor(L"button.png", r.margin), r.size).get(), ctrl.get());
        made.push_back(ctrl);
    }
    EXPECT_EQ(ctrls.Size(), std::size(requests));
}
