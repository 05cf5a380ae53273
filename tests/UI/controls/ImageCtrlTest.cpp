#include "ControlTestSupport.h"

#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

#include <cstring>
#include <string>

using UIKit::ImageCtrl;

namespace {

// 30 x 30, margins 10: red and green give the source position (x * 8, y * 8),
// blue the piece (0 to 8, times 28); the same pattern as the test pack's
// button.png.
wxImage nineSliceImage()
{
    wxImage image(30, 30);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
            image.SetRGB(x, y, x * 8, y * 8, ((x / 10) + 3 * (y / 10)) * 28);
    return image;
}

// The nine pieces cut and scaled with wxImage::Scale one by one, pasted
// pixel by pixel: what a rendering must equal.
wxImage reference(const wxImage& source, int tw, int th, int m)
{
    const int sw = source.GetWidth(), sh = source.GetHeight();
    const int sx[4] = {0, m, sw - m, sw}, tx[4] = {0, m, tw - m, tw};
    const int sy[4] = {0, m, sh - m, sh}, ty[4] = {0, m, th - m, th};
    wxImage out(tw, th, true);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            wxImage piece = source.GetSubImage(wxRect(sx[c], sy[r], sx[c + 1] - sx[c], sy[r + 1] - sy[r]));
            piece = piece.Scale(tx[c + 1] - tx[c], ty[r + 1] - ty[r]);
            for (int y = 0; y < piece.GetHeight(); ++y)
                for (int x = 0; x < piece.GetWidth(); ++x)
                    out.SetRGB(tx[c] + x, ty[r] + y, piece.GetRed(x, y), piece.GetGreen(x, y), piece.GetBlue(x, y));
        }
    return out;
}

// Whether the two images hold the same pixels, alpha included when they have it.
bool samePixels(const wxImage& a, const wxImage& b)
{
    const size_t pixels = size_t(a.GetWidth()) * size_t(a.GetHeight());
    return a.GetSize() == b.GetSize() && a.HasAlpha() == b.HasAlpha() &&
           std::memcmp(a.GetData(), b.GetData(), pixels * 3) == 0 &&
           (!a.HasAlpha() || std::memcmp(a.GetAlpha(), b.GetAlpha(), pixels) == 0);
}

} // namespace

TEST(ImageCtrlTest, NineSliceKeepsCornersStretchesEdgesOneWayAndTheCentreBothWays)
{
    struct Case { wxSize asked; wxSize rendered; };
    const Case cases[] = {
        {{100, 40}, {100, 40}}, {{25, 25}, {25, 25}}, // stretched; the middle shrunk (wxImage averages)
        {{30, 12}, {30, 21}}, {{11, 50}, {21, 50}}, // too small for the margins: grows
    };
    const wxImage source = nineSliceImage();
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.asked.x) + "x" + std::to_string(c.asked.y));
        ImageCtrl ctrl(source, c.asked, 10, 10, 10, 10);
        const wxImage image = ctrl.RenderImage(c.asked);
        EXPECT_EQ(image.GetSize(), c.rendered);
        EXPECT_TRUE(samePixels(image, reference(source, c.rendered.x, c.rendered.y, 10)))
            << "an opaque source renders opaque";
    }
}

TEST(ImageCtrlTest, PlainScalingSameSizeAndNothingToRender)
{
    const wxImage source = nineSliceImage();
    struct Case { unsigned int top, left, right, bottom; bool scaled; };
    const Case cases[] = {
        {0, 0, 0, 0, true},      // no margins
        {10, 20, 20, 10, true},  // left + right exceed the width
        {16, 1, 1, 15, true},    // top + bottom exceed the height
        {15, 15, 15, 15, false}, // margins that fill the image exactly still slice
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.left);
        ImageCtrl ctrl(source, wxSize(90, 45), c.top, c.left, c.right, c.bottom);
        const wxImage image = ctrl.RenderImage(wxSize(90, 45));
        const wxImage scaled = source.Scale(90, 45);
        EXPECT_EQ(samePixels(image, scaled), c.scaled);
    }
    // Margins 15 + 15 leave no middle column to stretch: the middle stays transparent.
    const wxImage gap = ImageCtrl(source, wxSize(40, 40), 15, 15, 15, 15).RenderImage(wxSize(40, 40));
    EXPECT_EQ(gap.GetAlpha(20, 5), 0);
    EXPECT_EQ(gap.GetAlpha(5, 5), 255);

    // An invalid source renders nothing; a size below 1 keeps the last rendering.
    ImageCtrl invalid(wxNullImage, wxSize(10, 10), 1, 1, 1, 1);
    invalid.Resize(wxSize(20, 20));
    EXPECT_FALSE(invalid.GetBitmap().IsOk());
    ImageCtrl ctrl(source, wxSize(50, 50), 10, 10, 10, 10);
    for (const wxSize bad : {wxSize(0, 10), wxSize(10, 0), wxSize(-5, -5)}) {
        ctrl.Resize(bad);
        EXPECT_EQ(ctrl.GetSize(), wxSize(50, 50));
    }
}

TEST(ImageCtrlTest, AlphaAndMaskCarryIntoTheRendering)
{
    wxImage withAlpha = nineSliceImage();
    withAlpha.InitAlpha();
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
            withAlpha.SetAlpha(x, y, static_cast<unsigned char>(x * 8));
    wxImage opaqueAlpha = nineSliceImage();
    opaqueAlpha.InitAlpha();
    EXPECT_FALSE(ImageCtrl(opaqueAlpha, wxSize(60, 60), 10, 10, 10, 10).RenderImage(wxSize(60, 60)).HasAlpha())
        << "an alpha channel that is 255 everywhere changes nothing";
    const wxImage a = ImageCtrl(withAlpha, wxSize(60, 60), 10, 10, 10, 10).RenderImage(wxSize(60, 60));
    EXPECT_EQ(a.GetAlpha(0, 0), 0);
    EXPECT_EQ(a.GetAlpha(59, 30), 29 * 8);
    EXPECT_EQ(a.GetAlpha(30, 30), a.GetRed(30, 30));

    // The bitmap a resize makes (written straight into the bitmap when the
    // rendering has alpha) holds the same pixels, transparent ones included.
    const wxImage opaqueNoAlpha = nineSliceImage();
    struct Case { const wxImage* source; unsigned int margin; wxSize size; };
    const Case cases[] = {{&withAlpha, 10, {400, 300}},
                          {&opaqueNoAlpha, 15, {40, 40}}}; // the second has empty middle bands
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.size.x) + "x" + std::to_string(c.size.y));
        ImageCtrl ctrl(*c.source, c.size, c.margin, c.margin, c.margin, c.margin);
        EXPECT_TRUE(samePixels(ctrl.GetBitmap().ConvertToImage(), ctrl.RenderImage(c.size)));
    }

    wxImage masked = nineSliceImage();
    masked.SetMaskColour(255, 0, 255);
    const wxImage m = ImageCtrl(masked, wxSize(60, 60), 10, 10, 10, 10).RenderImage(wxSize(60, 60));
    ASSERT_TRUE(m.HasMask());
    EXPECT_EQ(wxColour(m.GetMaskRed(), m.GetMaskGreen(), m.GetMaskBlue()), wxColour(255, 0, 255));
}

TEST(ImageCtrlTest, BlitClipsToBothImagesAndSettlesAlpha)
{
    wxImage source(4, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            source.SetRGB(x, y, 10 + x, 20 + y, 30);
    // written: the target pixels that must hold source pixels
    // dy: source = target - (dx, dy)
    struct Case { int x, y, w, h, tx, ty; wxRect written; int dx, dy; };
    const Case cases[] = {
        {0, 0, -1, -1, 1, 1, {1, 1, 4, 4}, 1, 1},
        {2, 2, -1, -1, 0, 0, {0, 0, 4, 4}, 0, 0},  // -1 takes the whole source from 0
        {0, 0, 4, 4, -2, -1, {0, 0, 2, 3}, -2, -1}, // left of and above the target
        {0, 0, 4, 4, 4, 4, {4, 4, 2, 2}, 4, 4},     // over the right and bottom edges
        {-1, -1, 3, 3, 0, 0, {1, 1, 2, 2}, 1, 1},   // before the source's start
        {0, 0, 4, 4, 9, 9, {0, 0, 0, 0}, 0, 0},     // entirely outside
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.tx) + "," + std::to_string(c.ty));
        wxImage target = ImageCtrl::CreateTransparentImage(6, 6);
        wxImage copy = source;
        ImageCtrl::BlitImage(copy, c.x, c.y, c.w, c.h, target, c.tx, c.ty, false);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 6; ++x) {
                const bool inside = c.written.Contains(x, y);
                ASSERT_EQ(target.GetAlpha(x, y), inside ? 255 : 0) << x << "," << y;
                if (inside) {
                    ASSERT_EQ(target.GetRed(x, y), 10 + x - c.dx);
                    ASSERT_EQ(target.GetGreen(x, y), 20 + y - c.dy);
                }
            }
    }

    // A source with alpha gives an opaque target alpha (the rendering
    // tests cover masks and forced alpha).
    wxImage plainTarget(4, 4, true);
    wxImage alphaSource = ImageCtrl::CreateTransparentImage(2, 2);
    alphaSource.SetAlpha(1, 1, 77);
    ImageCtrl::BlitImage(alphaSource, plainTarget, 0, 0);
    ASSERT_TRUE(plainTarget.HasAlpha());
    EXPECT_EQ(plainTarget.GetAlpha(1, 1), 77);
    EXPECT_EQ(plainTarget.GetAlpha(3, 3), 255);

    // A target that shares its pixels with another image is unshared first.
    wxImage shared = ImageCtrl::CreateTransparentImage(4, 4);
    wxImage before = shared;
    ImageCtrl::BlitImage(source, shared, 0, 0);
    EXPECT_EQ(before.GetAlpha(0, 0), 0);
}

TEST(ImageCtrlTest, DrawPaintsTheRenderingAndDescriptorMarginsKeepTheirOrder)
{
    // Drawn at (5, 5) on white, a partly transparent rendering (written
    // straight into its bitmap) is blended over it; the button and panel
    // tests draw opaque ones.
    wxImage source = nineSliceImage();
    source.InitAlpha();
    std::memset(source.GetAlpha(), 128, 30 * 30);
    ImageCtrl ctrl(source, wxSize(40, 40), 10, 10, 10, 10);
    const wxImage painted = controltest::Render(wxSize(50, 50), [&](wxDC& dc) { ctrl.Draw(dc, wxPoint(5, 5)); });
    const wxImage expected = ctrl.RenderImage(wxSize(40, 40));
    EXPECT_EQ(painted.GetRed(4, 4), 255) << "outside the drawing";
    const auto over = [](int c) { return (c * 128 + 255 * 127) / 255; };
    for (const wxPoint p : {wxPoint(0, 0), wxPoint(39, 0), wxPoint(20, 20), wxPoint(39, 39)}) {
        EXPECT_NEAR(painted.GetRed(p.x + 5, p.y + 5), over(expected.GetRed(p.x, p.y)), 2) << p.x << "," << p.y;
        EXPECT_NEAR(painted.GetBlue(p.x + 5, p.y + 5), over(expected.GetBlue(p.x, p.y)), 2) << p.x << "," << p.y;
    }

    // The margin attribute lists top, left, right, bottom.
    auto descriptor = Toolkit::make_smart<UIKit::ImageDescriptor>(nineSliceImage(), L"button.png", wxRect(1, 2, 3, -4));
    ImageCtrl fromDescriptor(descriptor, wxSize(40, 40));
    EXPECT_EQ(std::to_string(fromDescriptor.GetMarginTop()) + std::to_string(fromDescriptor.GetMarginLeft()) +
                  std::to_string(fromDescriptor.GetMarginRight()) + std::to_string(fromDescriptor.GetMarginBottom()),
              "1230") << "a negative margin counts as none";
}
