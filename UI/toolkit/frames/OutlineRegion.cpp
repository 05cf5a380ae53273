#include "frames/OutlineRegion.h"

#include <utility>
#include <vector>

namespace UIKit {
namespace {

using Runs = std::vector<std::pair<int, int>>; // [from, to) of inside pixels

Runs runsOfRow(const unsigned char* rgb, const unsigned char* alpha, int width)
{
    Runs runs;
    int start = -1;
    for (int x = 0; x <= width; ++x) {
        bool inside = false;
        if (x < width) {
            const unsigned char* p = rgb + 3 * x;
            inside = !(p[0] == 255 && p[1] == 0 && p[2] == 255) && (!alpha || alpha[x] >= 128);
        }
        if (inside && start < 0)
            start = x;
        else if (!inside && start >= 0) {
            runs.emplace_back(start, x);
            start = -1;
        }
    }
    return runs;
}

void addBand(wxRegion& region, const Runs& runs, int top, int bottom)
{
    for (const auto& [from, to] : runs)
        region.Union(from, top, to - from, bottom - top);
}

} // namespace

wxRegion OutlineRegion(const wxImage& image)
{
    wxRegion region;
    if (!image.IsOk())
        return region;
    const int width = image.GetWidth();
    const int height = image.GetHeight();
    const unsigned char* rgb = image.GetData();
    const unsigned char* alpha = image.HasAlpha() ? image.GetAlpha() : nullptr;
    Runs band;
    int bandTop = 0;
    for (int y = 0; y < height; ++y) {
        Runs row = runsOfRow(rgb + size_t(3) * size_t(width) * size_t(y),
                             alpha ? alpha + size_t(width) * size_t(y) : nullptr, width);
        if (y > 0 && row == band)
            continue;
        addBand(region, band, bandTop, y);
        band = std::move(row);
        bandTop = y;
    }
    addBand(region, band, bandTop, height);
    return region;
}

} // namespace UIKit
