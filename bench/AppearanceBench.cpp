// The appearance's hot paths, each per call:
//  - ImageCtrlWithIdentifier on a cache hit (buttons and panels ask for
//    their image control on every layout);
//  - GetStr of a present key (every label);
//  - ImageCtrl::Resize of a 30 x 30 image with margins 10 to 400 x 300,
//    next to one plain wxImage::Scale of the whole image to the same size,
//    for an opaque image (arg 0) and one with alpha (arg 1).
#include "appearance/Appearance.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

using namespace UIKit;
namespace fs = std::filesystem;

namespace {

wxImage buttonImage(bool alpha)
{
    wxImage image(30, 30);
    if (alpha)
        image.InitAlpha();
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) {
            image.SetRGB(x, y, x * 8, y * 8, 100);
            if (alpha)
                image.SetAlpha(x, y, static_cast<unsigned char>(128 + x));
        }
    return image;
}

// A directory pack with one image and one culture, in a folder of its own,
// selected for the lifetime of the object.
class BenchPack {
public:
    BenchPack() : m_dir(fs::temp_directory_path() / ("uikit-bench-" + std::to_string(getpid())))
    {
        const fs::path pack = m_dir / "bench.ar";
        fs::create_directories(pack / "graphics");
        fs::create_directories(pack / "strings.en");
        buttonImage(false).SaveFile((pack / "graphics" / "button.png").string(), wxBITMAP_TYPE_PNG);
        std::ofstream(pack / "strings.en" / "main.rc") << "STRINGTABLE\nBEGIN\n    LB_OK \"OK\"\nEND\n";
        setenv("UIKIT_APPEARANCES_DIR", m_dir.c_str(), 1);
    }
    ~BenchPack()
    {
        unsetenv("UIKIT_APPEARANCES_DIR");
        std::error_code ec;
        fs::remove_all(m_dir, ec);
    }

private:
    fs::path m_dir;
};

void BM_ImageCtrlWithIdentifier_CacheHit(benchmark::State& state)
{
    BenchPack pack;
    Appearance appearance;
    if (!appearance.Init(L"", L"en")) {
        state.SkipWithError("the bench pack did not load");
        return;
    }
    appearance.GetGraphic(L"button.png");
    auto descriptor = Toolkit::make_smart<ImageDescriptor>(wxImage(), L"button.png", wxRect(10, 10, 10, 10));
    const wxSize size(120, 32);
    appearance.ImageCtrlWithIdentifier(descriptor, size);
    for (auto _ : state)
        benchmark::DoNotOptimize(appearance.ImageCtrlWithIdentifier(descriptor, size));
}
BENCHMARK(BM_ImageCtrlWithIdentifier_CacheHit);

void BM_GetStr_PresentKey(benchmark::State& state)
{
    Appearance appearance;
    // A table of the size of a real skin's.
    for (int i = 0; i < 500; ++i)
        appearance.ParseStringsDefinitions(L"LB_LABEL_" + std::to_wstring(i) + L" \"Label number " +
                                           std::to_wstring(i) + L"\"");
    const TString<char> key("LB_LABEL_250");
    for (auto _ : state)
        benchmark::DoNotOptimize(&appearance.GetStr(key));
}
BENCHMARK(BM_GetStr_PresentKey);

void BM_ImageCtrl_Resize_30_to_400x300(benchmark::State& state)
{
    ImageCtrl ctrl(buttonImage(state.range(0) != 0), wxSize(30, 30), 10, 10, 10, 10);
    const wxSize size(400, 300);
    for (auto _ : state) {
        ctrl.Resize(size);
        benchmark::DoNotOptimize(ctrl.GetBitmap());
    }
}
BENCHMARK(BM_ImageCtrl_Resize_30_to_400x300)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_wxImage_Scale_30_to_400x300(benchmark::State& state)
{
    const wxImage image = buttonImage(state.range(0) != 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(image.Scale(400, 300, wxIMAGE_QUALITY_NORMAL));
}
BENCHMARK(BM_wxImage_Scale_30_to_400x300)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace
