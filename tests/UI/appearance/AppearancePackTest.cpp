#include "AppearanceTestSupport.h"

#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"
#include "xml/XMLLoader.h"

#include <fstream>
#include <iterator>

using appearancetest::AppearanceTest;
using testsupport::LogCapture;
namespace fs = std::filesystem;

namespace {

std::vector<unsigned char> fileBytes(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::vector<unsigned char>(std::istreambuf_iterator<char>(in), {});
}

// RGB and alpha bytes of an image, for comparing two decodings.
std::string pixels(const wxImage& image)
{
    std::string bytes(reinterpret_cast<const char*>(image.GetData()), size_t(image.GetWidth() * image.GetHeight() * 3));
    if (image.HasAlpha())
        bytes.append(reinterpret_cast<const char*>(image.GetAlpha()), size_t(image.GetWidth() * image.GetHeight()));
    return bytes;
}

bool isBlack128(const wxImage& image)
{
    return image.IsOk() && image.GetSize() == wxSize(128, 128) && image.GetRed(64, 64) == 0 &&
           image.GetGreen(127, 127) == 0 && !image.HasAlpha();
}

const std::string c_strings = appearancetest::LanguageFile("en", "English", {"LB_A \"a\""});

} // namespace

TEST_F(AppearanceTest, DirectoryPackAndItsZippedTwinGiveTheSameContent)
{
    struct Seen {
        std::vector<unsigned char> dashboard;
        std::map<std::string, std::string> images;
        std::vector<std::wstring> strings;
        std::vector<std::wstring> cultures;
    };
    std::vector<Seen> seen;
    const std::vector<std::string> images{"button.png", "magenta.png", "alpha.png", "background.png", "logo.img"};
    for (const auto& dir : {appearancetest::TestPackDir().parent_path(), appearancetest::ZippedPacksDir()}) {
        SCOPED_TRACE(dir.string());
        UseAppearancesDir(dir);
        UIKit::Appearance appearance;
        UIKit::Appearance::CmdLine_OptionCulture = L"fr-CA";
        ASSERT_TRUE(appearance.Init());
        EXPECT_EQ(appearance.IsArchivePack(), dir == appearancetest::ZippedPacksDir());
        EXPECT_EQ(appearance.GetPackList(), std::vector<TString<wchar_t>>{L"testskin.ar"});
        Seen s;
        ASSERT_TRUE(appearance.ReadDescriptor(L"dashboard", s.dashboard));
        if (!appearance.IsArchivePack()) {
            ASSERT_EQ(s.dashboard.back(), 0) << "a directory pack terminates the text";
            s.dashboard.pop_back();
        }
        EXPECT_EQ(s.dashboard, fileBytes(appearancetest::TestPackDir() / "dashboard.xml"));
        for (const auto& name : images) {
            const wxImage image = appearance.GetGraphic(TString<wchar_t>(name.begin(), name.end()));
            ASSERT_TRUE(image.IsOk() && !isBlack128(image)) << name;
            s.images[name] = pixels(image);
        }
        // Pixels as the pack's image script paints them; the cache shares them.
        const wxImage magenta = appearance.GetGraphic(L"magenta.png");
        EXPECT_EQ(wxColour(magenta.GetRed(0, 0), magenta.GetGreen(0, 0), magenta.GetBlue(0, 0)), wxColour(255, 0, 255));
        EXPECT_EQ(appearance.GetGraphic(L"alpha.png").GetAlpha(7, 3), 252);
        EXPECT_EQ(appearance.GetGraphic(L"button.png").GetBlue(15, 15), 4 * 28);
        EXPECT_TRUE(appearance.GetGraphic(L"magenta.png").IsSameAs(magenta));
        for (const char* key : {"LB_COLOUR", "LB_HELLO", "LB_MULTI", "LB_ONLY_EN"})
            s.strings.push_back(appearance.GetStr(TString<char>(key)));
        UIKit::Appearance::Cultures cultures;
        appearance.GetCultures(cultures);
        for (const auto& c : cultures)
            s.cultures.push_back(c->GetName() + L"=" + c->GetNativeName());
        seen.push_back(s);
    }
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].dashboard, seen[1].dashboard);
    EXPECT_EQ(seen[0].images, seen[1].images);
    EXPECT_EQ(seen[0].strings, seen[1].strings);
    EXPECT_EQ(seen[0].cultures, seen[1].cultures);
    // fr-CA over its parent fr; a key only English defines is not there.
    EXPECT_EQ(seen[0].strings, (std::vector<std::wstring>{L"Couleur (Canada)", L"Bonjour",
                                                           L"Première ligne\nDeuxième ligne", L"Missing Label key"}));
    EXPECT_EQ(seen[0].cultures, (std::vector<std::wstring>{L"fr-CA=Français (Canada)", L"en=English",
                                                            L"fr=Français"}));
}

TEST_F(AppearanceTest, PackSelectionSortsNamesAndTheLastMatchWins)
{
    for (const char* name : {"b.ar", "dark.ar", "A.ar", "Dark.ar", "dark.ar.bak"})
        WritePack(name, {{"strings.en/main.rc", c_strings}});
    struct Case {
        std::wstring option;
        int index;
    };
    const Case cases[] = {
        {L"", 0}, {L"DARK", 3}, {L"b", 2}, {L"a", 0}, {L"nothing", 0}, {L"dark.ar", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.option.begin(), c.option.end()));
        UIKit::Appearance appearance;
        UIKit::Appearance::CmdLine_OptionAppearance = c.option;
        LogCapture log;
        ASSERT_TRUE(appearance.Init());
        EXPECT_EQ(appearance.GetPackList(),
                  (std::vector<TString<wchar_t>>{L"A.ar", L"Dark.ar", L"b.ar", L"dark.ar"}));
        EXPECT_EQ(appearance.GetCurrentPackIndex(), c.index);
        EXPECT_TRUE(log.Contains(L"Selected appareance pack is #" + std::to_wstring(c.index)));
        EXPECT_EQ(fs::path(std::wstring(appearance.GetPackPath())).filename().wstring(), appearance.GetPackList()[size_t(c.index)]);
    }
    UIKit::Appearance::CmdLine_OptionAppearance.clear();
    LogCapture log;
    EXPECT_FALSE(m_appearance->InitFromPack(4)) << "no index past the list";
    EXPECT_EQ(log.Count(L"The pack index <4> is not in the current valid range!"), 1u);
    EXPECT_EQ(m_appearance->GetCurrentPackIndex(), -1);
    EXPECT_TRUE(m_appearance->Init());
    EXPECT_TRUE(m_appearance->InitFromPack(3));
    EXPECT_EQ(m_appearance->GetCurrentPackIndex(), 3);
}

TEST_F(AppearanceTest, PacksThatCannotBeUsedAreReportedOnce)
{
    LogCapture log;
    // A directory without packs: index 0 is out of range.
    EXPECT_FALSE(m_appearance->Init());
    EXPECT_EQ(log.Count(L"The pack index <0> is not in the current valid range!"), 1u);

    // No appearances directory at all.
    log.Clear();
    UseAppearancesDir(Appearances() / "missing");
    EXPECT_FALSE(m_appearance->Init());
    EXPECT_EQ(log.Count(L"No appearance pack found under <" + (Appearances() / "missing").wstring() + L">"), 1u);
    UseAppearancesDir(Appearances());

    // A pack without any "strings." folder.
    WritePack("plain.ar", {{"dashboard.xml", "<Control/>"}});
    log.Clear();
    EXPECT_FALSE(m_appearance->Init());
    EXPECT_EQ(log.Count(L"No languages definitions for appearance pack <" + (Appearances() / "plain.ar").wstring() +
                        L">"),
              1u);

    // A pack removed after it was listed.
    fs::remove_all(Appearances() / "plain.ar");
    log.Clear();
    EXPECT_FALSE(m_appearance->InitFromPack(0));
    EXPECT_EQ(log.Count(L"The pack <" + (Appearances() / "plain.ar").wstring() + L"> does'nt exist!"), 1u);
    EXPECT_TRUE(m_appearance->GetPackPath().empty());
    std::vector<unsigned char> bytes;
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"dashboard", bytes));
    EXPECT_TRUE(isBlack128(m_appearance->GetGraphic(L"button.png")));

    // A file named like a pack that is not a zip archive: one entry naming it.
    m_temp.Write("appearances/broken.ar", "this is not a zip archive");
    log.Clear();
    EXPECT_FALSE(m_appearance->Init());
    const auto entries = log.Entries();
    ASSERT_EQ(std::count_if(entries.begin(), entries.end(), [](const auto& e) { return e.severity == Toolkit::LogError; }),
              1)
        << log.Dump();
    EXPECT_TRUE(log.Contains(L"broken.ar")) << log.Dump();
}

TEST_F(AppearanceTest, BadEntriesInsideAPackAreSkipped)
{
    const std::string png = [] {
        std::ifstream in(appearancetest::TestPackDir() / "graphics" / "logo.img", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }();
    appearancetest::WriteZip(Appearances() / "evil.ar",
                             {{"../x", "outside"},
                              {"strings.en/main.rc", c_strings},
                              {"graphics/logo.png", png},
                              {"graphics/broken.png", "not a png"},
                              {"empty.xml", ""},
                              {"ok.xml", "<Control/>"}});
    LogCapture log;
    ASSERT_TRUE(m_appearance->Init());
    EXPECT_TRUE(m_appearance->IsArchivePack());
    EXPECT_EQ(m_appearance->GetStr(TString<char>("LB_A")), L"a");
    EXPECT_TRUE(log.Contains(L"evil.ar")) << "the refused entry is reported with the archive's name";

    std::vector<unsigned char> bytes{1, 2, 3};
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"empty", bytes)) << "an empty description reads as missing";
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"missing", bytes));
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"../x", bytes));
    ASSERT_TRUE(m_appearance->ReadDescriptor(L"ok", bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "<Control/>");

    // Missing or undecodable images: a fresh black 128 x 128 each time, never cached.
    for (const wchar_t* name : {L"broken.png", L"broken.png", L"nothing.png", L"../x"}) {
        const wxImage first = m_appearance->GetGraphic(name);
        EXPECT_TRUE(isBlack128(first)) << name;
        EXPECT_FALSE(m_appearance->GetGraphic(name).IsSameAs(first));
    }
    EXPECT_EQ(m_appearance->GetGraphic(L"logo.png").GetSize(), wxSize(4, 2));
}

TEST_F(AppearanceTest, AMissingImageIsLookedForAgainAndCachesSurvivePackSwitches)
{
    WritePack("a.ar", {{"strings.en/main.rc", c_strings}, {"empty.xml", ""}});
    WritePack("b.ar", {{"strings.en/main.rc", c_strings}, {"secret.xml", "<Secret/>"}});
    InitWithCulture(L"en");
    std::vector<unsigned char> bytes;
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"empty", bytes));
    EXPECT_FALSE(m_appearance->ReadDescriptor(L"../b.ar/secret", bytes)) << "names stay inside the pack";
    EXPECT_TRUE(isBlack128(m_appearance->GetGraphic(L"button.png")));
    fs::create_directories(Appearances() / "a.ar" / "graphics");
    fs::copy_file(appearancetest::TestPackDir() / "graphics" / "button.png",
                  Appearances() / "a.ar" / "graphics" / "button.png");
    const wxImage button = m_appearance->GetGraphic(L"button.png");
    EXPECT_EQ(button.GetSize(), wxSize(30, 30)) << "the second request tries the pack again";

    ASSERT_TRUE(m_appearance->InitFromPack(1));
    EXPECT_TRUE(m_appearance->GetGraphic(L"button.png").IsSameAs(button)) << "the cache outlives the pack";
    EXPECT_EQ(m_appearance->LoadGraphics(L"*"), -1) << "directory packs preload nothing";
}

TEST_F(AppearanceTest, LoadGraphicsPreloadsMatchingImagesOfAnArchive)
{
    UseAppearancesDir(appearancetest::ZippedPacksDir());
    InitWithCulture(L"en");
    auto descriptor = Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), L"magenta.png", wxRect(0, 0, 0, 0));
    EXPECT_TRUE(m_appearance->ImageCtrlWithIdentifier(descriptor, wxSize(20, 20)).IsNull()) << "not loaded yet";
    EXPECT_EQ(m_appearance->LoadGraphics(L"nothing*"), 0);
    EXPECT_EQ(m_appearance->LoadGraphics(L"*.png"), 1);
    EXPECT_FALSE(m_appearance->ImageCtrlWithIdentifier(descriptor, wxSize(20, 20)).IsNull());
    EXPECT_EQ(m_appearance->GetGraphic(L"alpha.png").GetAlpha(7, 0), 252);
}

TEST_F(AppearanceTest, ImageControlsAreSharedExactlyWhenImageSizeAndMarginsAgree)
{
    TString<wchar_t> key;
    const unsigned int four[4] = {4, 4, 4, 4};
    UIKit::Appearance::ImageCtrlKey(L"button.png", wxSize(120, 32), four, key);
    EXPECT_EQ(key, L"button.png[120x32,4.4.4.4]");
    const unsigned int mixed[4] = {1, 22, 333, 0};
    UIKit::Appearance::ImageCtrlKey(L"b", wxSize(-1, 7), mixed, key);
    EXPECT_EQ(key, L"b[-1x7,1.22.333.0]");

    UseAppearancesDir(appearancetest::TestPackDir().parent_path());
    InitWithCulture(L"en");
    LogCapture log;
    EXPECT_TRUE(m_appearance->ImageCtrlWithIdentifier({}, wxSize(10, 10)).IsNull());
    auto unnamed = Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), L"", wxRect(1, 1, 1, 1));
    EXPECT_TRUE(m_appearance->ImageCtrlWithIdentifier(unnamed, wxSize(10, 10)).IsNull());
    EXPECT_EQ(log.Size(), 0u);
    auto ghost = Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), L"ghost.png", wxRect(1, 1, 1, 1));
    EXPECT_TRUE(m_appearance->ImageCtrlWithIdentifier(ghost, wxSize(10, 10)).IsNull());
    EXPECT_EQ(log.Count(L"Missing image with identifier : ghost.png"), 1u);

    m_appearance->GetGraphic(L"button.png");
    struct Request {
        wxSize size;
        wxRect margin; // top, left, right, bottom
    };
    const Request requests[] = {
        {{120, 32}, {4, 4, 4, 4}}, {{120, 32}, {4, 4, 4, 5}}, {{120, 32}, {4, 4, 5, 4}}, {{120, 32}, {4, 5, 4, 4}},
        {{120, 32}, {5, 4, 4, 4}}, {{121, 32}, {4, 4, 4, 4}}, {{120, 33}, {4, 4, 4, 4}}, {{32, 120}, {4, 4, 4, 4}},
        {{120, 32}, {44, 4, 4, 4}},
    };
    std::vector<Toolkit::smart_ptr<UIKit::ImageCtrl>> made;
    for (const auto& r : requests) {
        auto descriptor = Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), L"button.png", r.margin);
        auto ctrl = m_appearance->ImageCtrlWithIdentifier(descriptor, r.size);
        ASSERT_FALSE(ctrl.IsNull());
        EXPECT_EQ(ctrl->GetMarginTop(), unsigned(r.margin.x));
        EXPECT_EQ(ctrl->GetMarginLeft(), unsigned(r.margin.y));
        EXPECT_EQ(ctrl->GetMarginRight(), unsigned(r.margin.width));
        EXPECT_EQ(ctrl->GetMarginBottom(), unsigned(r.margin.height));
        EXPECT_EQ(ctrl->GetSize(), r.size);
        for (const auto& other : made)
            EXPECT_NE(ctrl.get(), other.get()) << "a control of another size or margins was handed out";
        // The same request again, from another descriptor object, shares the control.
        auto again = Toolkit::make_smart<UIKit::ImageDescriptor>(wxImage(), L"button.png", r.margin);
        EXPECT_EQ(m_appearance->ImageCtrlWithIdentifier(again, r.size).get(), ctrl.get());
        made.push_back(ctrl);
    }
}

TEST_F(AppearanceTest, ServesTheXmlReaderAsItsResources)
{
    UseAppearancesDir(appearancetest::ZippedPacksDir());
    InitWithCulture(L"fr");
    UIKit::XMLLoader loader;
    loader.SetResources(m_appearance.get());
    ASSERT_TRUE(loader.LoadFromAppearance(L"dashboard"));
    EXPECT_EQ(loader.ReadString("", "name"), L"Dashboard");
    EXPECT_EQ(loader.ReadLabel("Control/Control/Label", ""), L"Bonjour");
    EXPECT_EQ(loader.ReadImage("BackgroundImage", "").GetSize(), wxSize(40, 30));
    EXPECT_FALSE(loader.LoadFromAppearance(L"empty"));
}
