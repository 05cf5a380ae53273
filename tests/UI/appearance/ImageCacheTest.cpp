#include "AppearanceTestSupport.h"

#include "appearance/IPack.h"
#include "appearance/ImageCache.h"
#include "appearance/ImageCtrlCache.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

using appearancetest::AppearanceTest;
using appearancetest::ErrorCapture;
using testsupport::LogCapture;
namespace fs = std::filesystem;

namespace {

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
