#include "controls/ImageCtrl.h"

#include "descriptors/ImageDescriptor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace UIKit {
namespace {

// The nine-slice geometry along one axis: where the three bands start in the
// source and in the target (leading margin, middle, trailing margin).
struct Bands {
    int source[4];
    int target[4];
};

Bands bandsOf(int source, int target, unsigned int lead, unsigned int trail)
{
    const int l = int(lead);
    const int t = int(trail);
    return Bands{{0, l, source - t, source}, {0, l, target - t, target}};
}

// For each target position, the source position it takes its pixel from, or
// -1 where the middle band of the source is empty. The middle band steps in
// 16.16 fixed point like wxImage's nearest-neighbour resampling, so the result
// equals scaling that piece with wxImage::Scale.
std::vector<int> positionMap(const Bands& b)
{
    std::vector<int> map(size_t(b.target[3]), -1);
    for (int i = 0; i < b.target[1]; ++i)
        map[size_t(i)] = i;
    const int middleSource = b.source[2] - b.source[1];
    const int middleTarget = b.target[2] - b.target[1];
    if (middleSource > 0 && middleTarget > 0) {
        const unsigned long delta = (static_cast<unsigned long>(middleSource) << 16) / unsigned(middleTarget);
        unsigned long pos = 0;
        for (int i = 0; i < middleTarget; ++i, pos += delta)
            map[size_t(b.target[1] + i)] = b.source[1] + int(pos >> 16);
    }
    for (int i = 0; i < b.target[3] - b.target[2]; ++i)
        map[size_t(b.target[2] + i)] = b.source[2] + i;
    return map;
}

// Fills the target in one pass through the position maps. A target row that
// takes the same source row as the one above is a copy of it, which makes
// vertical stretching nearly free.
void fillByMaps(const wxImage& source, const std::vector<int>& columns, const std::vector<int>& rows, wxImage& target)
{
    const int sw = source.GetWidth();
    const int tw = target.GetWidth();
    const unsigned char* sRgb = source.GetData();
    const unsigned char* sAlpha = source.HasAlpha() ? source.GetAlpha() : nullptr;
    unsigned char* tRgb = target.GetData();
    unsigned char* tAlpha = target.HasAlpha() ? target.GetAlpha() : nullptr;
    for (size_t ty = 0; ty < rows.size(); ++ty) {
        const int sy = rows[ty];
        unsigned char* rgbRow = tRgb + ty * size_t(tw) * 3;
        unsigned char* alphaRow = tAlpha ? tAlpha + ty * size_t(tw) : nullptr;
        if (sy < 0)
            continue;
        if (ty > 0 && rows[ty - 1] == sy) {
            std::memcpy(rgbRow, rgbRow - size_t(tw) * 3, size_t(tw) * 3);
            if (alphaRow)
                std::memcpy(alphaRow, alphaRow - tw, size_t(tw));
            continue;
        }
        const unsigned char* sRgbRow = sRgb + size_t(sy) * size_t(sw) * 3;
        const unsigned char* sAlphaRow = sAlpha ? sAlpha + size_t(sy) * size_t(sw) : nullptr;
        for (int tx = 0; tx < tw; ++tx) {
            const int sx = columns[size_t(tx)];
            if (sx < 0)
                continue;
            std::memcpy(rgbRow + tx * 3, sRgbRow + sx * 3, 3);
            if (alphaRow)
                alphaRow[tx] = sAlphaRow ? sAlphaRow[sx] : 255;
        }
    }
}

// The nine pieces cut, scaled with wxImage::Scale and pasted one by one; used
// when a band shrinks, where wxImage averages instead of picking pixels.
void fillByPieces(wxImage& source, const Bands& x, const Bands& y, wxImage& target)
{
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            const wxRect from(x.source[col], y.source[row], x.source[col + 1] - x.source[col],
                              y.source[row + 1] - y.source[row]);
            const wxSize to(x.target[col + 1] - x.target[col], y.target[row + 1] - y.target[row]);
            if (from.width <= 0 || from.height <= 0 || to.x <= 0 || to.y <= 0)
                continue;
            wxImage piece = source.GetSubImage(from);
            if (from.GetSize() != to)
                piece = piece.Scale(to.x, to.y, wxIMAGE_QUALITY_NORMAL);
            ImageCtrl::BlitImage(piece, target, x.target[col], y.target[row]);
        }
    }
}

// True when no pixel is even partly transparent: skins often carry an
// alpha channel that is 255 everywhere.
bool isOpaque(const wxImage& image)
{
    if (!image.IsOk() || !image.HasAlpha())
        return true;
    const unsigned char* alpha = image.GetAlpha();
    return std::all_of(alpha, alpha + size_t(image.GetWidth()) * size_t(image.GetHeight()),
                       [](unsigned char a) { return a == 255; });
}

} // namespace

ImageCtrl::ImageCtrl(const wxImage& image, const wxSize& size, unsigned int top, unsigned int left,
                     unsigned int right, unsigned int bottom)
    : m_left(left), m_right(right), m_top(top), m_bottom(bottom), m_source(image), m_opaque(isOpaque(image))
{
    Resize(size);
}

ImageCtrl::ImageCtrl(Toolkit::smart_ptr<ImageDescriptor> descriptor, const wxSize& size)
    : m_left(0), m_right(0), m_top(0), m_bottom(0), m_opaque(true)
{
    if (descriptor) {
        unsigned int margins[4];
        MarginsOf(*descriptor, margins);
        m_top = margins[0];
        m_left = margins[1];
        m_right = margins[2];
        m_bottom = margins[3];
        m_source = descriptor->GetImage();
        m_opaque = isOpaque(m_source);
    }
    Resize(size);
}

void ImageCtrl::MarginsOf(const ImageDescriptor& descriptor, unsigned int margins[4])
{
    const wxRect& margin = descriptor.GetMargin();
    const int values[4] = {margin.x, margin.y, margin.width, margin.height};
    for (int i = 0; i < 4; ++i)
        margins[i] = values[i] < 0 ? 0u : unsigned(values[i]);
}

ImageCtrl::~ImageCtrl() = default;

void ImageCtrl::Resize(const wxSize& size)
{
    const wxImage image = RenderImage(size);
    if (image.IsOk())
        m_rendered = wxBitmap(image, wxBITMAP_SCREEN_DEPTH);
}

void ImageCtrl::Draw(wxDC& dc, const wxPoint& at)
{
    if (m_rendered.IsOk())
        dc.DrawBitmap(m_rendered, at, true);
}

wxImage ImageCtrl::RenderImage(const wxSize& size) const
{
    if (!m_source.IsOk() || size.x < 1 || size.y < 1)
        return wxImage();
    const int sw = m_source.GetWidth();
    const int sh = m_source.GetHeight();
    if (size == m_source.GetSize())
        return m_source;
    const bool noMargins = m_left == 0 && m_right == 0 && m_top == 0 && m_bottom == 0;
    if (noMargins || m_left + m_right > unsigned(sw) || m_top + m_bottom > unsigned(sh))
        return m_source.Scale(size.x, size.y, wxIMAGE_QUALITY_NORMAL);

    // The margins are never squeezed: a size too small for them grows.
    const int tw = std::max(size.x, int(m_left + m_right) + 1);
    const int th = std::max(size.y, int(m_top + m_bottom) + 1);
    const Bands x = bandsOf(sw, tw, m_left, m_right);
    const Bands y = bandsOf(sh, th, m_top, m_bottom);
    // Margins that fill the source leave an empty middle band, which stays
    // transparent. Otherwise an opaque source covers the whole target, and
    // without an alpha channel its bitmap is many times cheaper to build.
    const bool gaps = m_left + m_right == unsigned(sw) || m_top + m_bottom == unsigned(sh);
    const bool shrinks = x.target[2] - x.target[1] < x.source[2] - x.source[1] ||
                         y.target[2] - y.target[1] < y.source[2] - y.source[1];
    // Every pixel, alpha included, is written by the maps when there are no
    // gaps, so a partly transparent source needs no cleared alpha first.
    const bool writesEveryAlpha = !m_opaque && !gaps && !shrinks;
    wxImage target = (m_opaque && !gaps) || writesEveryAlpha ? wxImage(tw, th, false) : CreateTransparentImage(tw, th);
    if (writesEveryAlpha)
        target.SetAlpha(static_cast<unsigned char*>(std::malloc(size_t(tw) * size_t(th))), false);
    if (m_source.HasMask())
        target.SetMaskColour(m_source.GetMaskRed(), m_source.GetMaskGreen(), m_source.GetMaskBlue());
    if (shrinks) {
        wxImage source = m_source;
        fillByPieces(source, x, y, target);
    } else {
        fillByMaps(m_source, positionMap(x), positionMap(y), target);
    }
    return target;
}

wxImage ImageCtrl::CreateTransparentImage(int width, int height)
{
    if (width < 1 || height < 1)
        return wxImage();
    wxImage image(width, height, true);
    image.InitAlpha();
    std::memset(image.GetAlpha(), 0, size_t(width) * size_t(height));
    return image;
}

void ImageCtrl::BlitImage(wxImage& source, wxImage& target, int tx, int ty)
{
    BlitImage(source, 0, 0, -1, -1, target, tx, ty, false);
}

// Alpha: a source with alpha gives the target alpha too (forced: both get
// it); copied pixels take the source's alpha, or become opaque when the
// source has none. A source mask colour is carried over.
void ImageCtrl::BlitImage(wxImage& source, int x, int y, int width, int height, wxImage& target, int tx, int ty,
                          bool forceAlpha)
{
    if (!source.IsOk() || !target.IsOk())
        return;
    if (width == -1) {
        x = 0;
        width = source.GetWidth();
    }
    if (height == -1) {
        y = 0;
        height = source.GetHeight();
    }
    // Clip against the source, then against the target.
    if (x < 0) { width += x; tx -= x; x = 0; }
    if (y < 0) { height += y; ty -= y; y = 0; }
    if (tx < 0) { width += tx; x -= tx; tx = 0; }
    if (ty < 0) { height += ty; y -= ty; ty = 0; }
    width = std::min({width, source.GetWidth() - x, target.GetWidth() - tx});
    height = std::min({height, source.GetHeight() - y, target.GetHeight() - ty});

    target.UnShare();
    if (forceAlpha && !source.HasAlpha())
        source.InitAlpha();
    if ((forceAlpha || source.HasAlpha()) && !target.HasAlpha())
        target.InitAlpha();
    if (source.HasMask())
        target.SetMaskColour(source.GetMaskRed(), source.GetMaskGreen(), source.GetMaskBlue());
    if (width <= 0 || height <= 0)
        return;

    const size_t sw = size_t(source.GetWidth());
    const size_t tw = size_t(target.GetWidth());
    const unsigned char* sAlpha = source.HasAlpha() ? source.GetAlpha() : nullptr;
    unsigned char* tAlpha = target.HasAlpha() ? target.GetAlpha() : nullptr;
    for (int row = 0; row < height; ++row) {
        const size_t s = size_t(y + row) * sw + size_t(x);
        const size_t t = size_t(ty + row) * tw + size_t(tx);
        std::memcpy(target.GetData() + t * 3, source.GetData() + s * 3, size_t(width) * 3);
        if (sAlpha && tAlpha)
            std::memcpy(tAlpha + t, sAlpha + s, size_t(width));
        else if (tAlpha)
            std::memset(tAlpha + t, 255, size_t(width));
    }
}

} // namespace UIKit
