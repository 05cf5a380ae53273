#pragma once
// Shared by the control tests: a private appearance pack whose images are
// solid colours (so a rendering tells which image was drawn), the appearance
// loaded from it as the process-wide one, and a shown frame to hold the
// controls.
#include "../appearance/AppearanceTestSupport.h"
#include "../descriptors/DescriptorTestSupport.h"

#include "TestSupport.h"
#include "appearance/Appearance.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <string>

namespace controltest {

struct Swatch {
    const char* file;
    wxColour colour;
};

// The pack's images, 8 x 8 each.
inline const Swatch c_swatches[] = {
    {"red.png", wxColour(255, 0, 0)},    {"green.png", wxColour(0, 255, 0)},  {"blue.png", wxColour(0, 0, 255)},
    {"yellow.png", wxColour(255, 255, 0)}, {"cyan.png", wxColour(0, 255, 255)}, {"grey.png", wxColour(128, 128, 128)},
};

inline wxColour PixelAt(const wxImage& image, int x, int y)
{
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

// The file name of the swatch with that colour, or "none".
inline std::string SwatchAt(const wxImage& image, int x, int y)
{
    for (const auto& s : c_swatches)
        if (s.colour == PixelAt(image, x, y))
            return s.file;
    return "none";
}

// Renders with the function into a bitmap of the size, white beforehand.
template <class Draw>
wxImage Render(const wxSize& size, Draw draw)
{
    wxBitmap bitmap(size);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        draw(dc);
    }
    return bitmap.ConvertToImage();
}

class SkinnedTest : public testing::Test {
protected:
    SkinnedTest()
        : m_appearancesEnv("UIKIT_APPEARANCES_DIR", (m_temp.Path() / "appearances").string()),
          m_configEnv("UIKIT_CONFIG_DIR", (m_temp.Path() / "config").string())
    {
    }
    void SetUp() override
    {
        const auto graphics = m_temp.Path() / "appearances" / "controls.ar" / "graphics";
        std::filesystem::create_directories(graphics);
        m_temp.Write("appearances/controls.ar/strings.en/main.rc",
                     appearancetest::LanguageFile("en", "English", {"LB_OK \"OK\""}));
        for (const auto& s : c_swatches) {
            wxImage image(8, 8);
            image.SetRGB(wxRect(0, 0, 8, 8), s.colour.Red(), s.colour.Green(), s.colour.Blue());
            ASSERT_TRUE(image.SaveFile((graphics / s.file).string(), wxBITMAP_TYPE_PNG));
        }
        UIKit::Appearance::CmdLine_OptionCulture = L"en";
        UIKit::Appearance::CreateInstance();
        ASSERT_TRUE(UIKit::Appearance::Instance()->Init());
        m_frame = new wxFrame(nullptr, wxID_ANY, "controls", wxPoint(0, 0), wxSize(300, 200));
        m_frame->Show();
    }
    void TearDown() override
    {
        delete m_frame;
        UIKit::Appearance::ReleaseInstance();
        UIKit::Appearance::CmdLine_OptionCulture.clear();
    }

    // A descriptor of class D parsed from the text; the parsed tree lives as
    // long as the fixture.
    template <class D>
    Toolkit::smart_ptr<D> Describe(const std::string& xml)
    {
        m_documents.push_back(std::make_unique<descriptortest::Document>(xml));
        return m_documents.back()->Make<D>();
    }

    testsupport::TempDir m_temp;
    appearancetest::ScopedEnv m_appearancesEnv;
    appearancetest::ScopedEnv m_configEnv;
    wxFrame* m_frame = nullptr;
    std::vector<std::unique_ptr<descriptortest::Document>> m_documents;
};

} // namespace controltest
