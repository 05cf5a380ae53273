#include "frames/OutlineRegion.h"

#include <gtest/gtest.h>

#include <string>

using UIKit::OutlineRegion;

namespace {

// Builds an image from rows of characters: '#' opaque, 'm' magenta,
// 'h' alpha 128 (kept), 'l' alpha 127 (cut).
wxImage imageOf(const std::vector<std::string>& rows)
{
    const int width = int(rows[0].size());
    wxImage image(width, int(rows.size()));
    image.InitAlpha();
    for (int y = 0; y < int(rows.size()); ++y)
        for (int x = 0; x < width; ++x) {
            const char c = rows[size_t(y)][size_t(x)];
            if (c == 'm')
                image.SetRGB(x, y, 255, 0, 255);
            image.SetAlpha(x, y, c == 'l' ? 127 : c == 'h' ? 128 : 255);
        }
    return image;
}

std::string dump(const wxRegion& region, int width, int height)
{
    std::string out;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            out += region.Contains(x, y) == wxInRegion ? '#' : '.';
        out += '\n';
    }
    return out;
}

} // namespace

TEST(OutlineRegionTest, MagentaAndFaintPixelsFallOutside)
{
    const std::vector<std::string> rows = {"m####m", "######", "######", "#h##l#", "##mm##", "##mm##", "m####m"};
    const wxRegion region = OutlineRegion(imageOf(rows));
    EXPECT_EQ(dump(region, 6, 7), ".####.\n######\n######\n####.#\n##..##\n##..##\n.####.\n");
    EXPECT_TRUE(OutlineRegion(wxImage()).IsEmpty());
}
