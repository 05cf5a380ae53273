#include "controls/ImageCtrl.h"

#include "descriptors/ImageDescriptor.h"

#ifdef __WXGTK__
#include <gdk-pixbuf/gdk-pixbuf.h>
#endif

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

// Where a fill writes. A wxImage keeps colour and alpha in two planes; a
// pixbuf interleaves them, alpha being the fourth byte of each pixel.
struct PixelPlanes {
    int width;
    unsigned char* rgb;
    size_t rgbStride; // bytes from one row to the next
    int rgbStep;      // bytes from one pixel to the next
    unsigned char* alpha; // null when the target has no alpha
    size_t alphaStride;
    int alphaStep;

    bool AlphaInRgbRows() const { return alpha == rgb + 3; }
};

// Fills every pixel of the target in one pass through the position maps;
// positions without a source pixel become transparent black. A target row
// that takes the same source row as the one above is a copy of it, which
// makes vertical stretching nearly free.
void fillByMaps(const wxImage& source, const std::vector<int>& columns, const std::vector<int>& rows,
                const PixelPlanes& to)
{
    const int sw = source.GetWidth();
    const unsigned char* sRgb = source.GetData();
    const unsigned char* sAlpha = source.HasAlpha() ? source.GetAlpha() : nullptr;
    for (size_t ty = 0; ty < rows.size(); ++ty) {
        const int sy = rows[ty];
        unsigned char* rgbRow = to.rgb + ty * to.rgbStride;
        unsigned char* alphaRow = to.alpha ? to.alpha + ty * to.alphaStride : nullptr;
        if (ty > 0 && rows[ty - 1] == sy) {
            std::memcpy(rgbRow, rgbRow - to.rgbStride, size_t(to.width) * size_t(to.rgbStep));
            if (alphaRow && !to.AlphaInRgbRows())
                std::memcpy(alphaRow, alphaRow - to.alphaStride, size_t(to.width) * size_t(to.alphaStep));
            continue;
        }
        const unsigned char* sRgbRow = sy < 0 ? nullptr : sRgb + size_t(sy) * size_t(sw) * 3;
        const unsigned char* sAlphaRow = sy < 0 || !sAlpha ? nullptr : sAlpha + size_t(sy) * size_t(sw);
        for (int tx = 0; tx < to.width; ++tx) {
            const int sx = sRgbRow ? columns[size_t(tx)] : -1;
            unsigned char* pixel = rgbRow + tx * to.rgbStep;
            unsigned char alpha = 0;
            if (sx < 0) {
                pixel[0] = pixel[1] = pixel[2] = 0;
            } else {
                std::memcpy(pixel, sRgbRow + sx * 3, 3);
                alpha = sAlphaRow ? sAlphaRow[sx] : 255;
            }
            if (alphaRow)
                alphaRow[tx * to.alphaStep] = alpha;
        }
    }
}

PixelPlanes planesOf(wxImage& image)
{
    const int w = image.GetWidth();
    return PixelPlanes{w, image.GetData(), size_t(w) * 3, 3, image.HasAlpha() ? image.GetAlpha() : nullptr,
                       size_t(w), 1};
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

// How one rendering is made.
struct Plan {
    enum Method { Nothing, Source, Scale, Maps, Pieces } method = Nothing;
    int width = 0;
    int height = 0;
    Bands x{};
    Bands y{};
    bool alpha = false; // the rendering has an alpha channel
};

Plan planOf(const wxImage& source, bool opaque, const wxSize& size, unsigned int top, unsigned int left,
            unsigned int right, unsigned int bottom)
{
    Plan plan;
    if (!source.IsOk() || size.x < 1 || size.y < 1)
        return plan;
    const int sw = source.GetWidth();
    const int sh = source.GetHeight();
    plan.width = size.x;
    plan.height = size.y;
    if (size == source.GetSize()) {
        plan.method = Plan::Source;
        return plan;
    }
    const bool noMargins = left == 0 && right == 0 && top == 0 && bottom == 0;
    if (noMargins || left + right > unsigned(sw) || top + bottom > unsigned(sh)) {
        plan.method = Plan::Scale;
        return plan;
    }
    // The margins are never squeezed: a size too small for them grows.
    plan.width = std::max(size.x, int(left + right) + 1);
    plan.height = std::max(size.y, int(top + bottom) + 1);
    plan.x = bandsOf(sw, plan.width, left, right);
    plan.y = bandsOf(sh, plan.height, top, bottom);
    const bool shrinks = plan.x.target[2] - plan.x.target[1] < plan.x.source[2] - plan.x.source[1] ||
                         plan.y.target[2] - plan.y.target[1] < plan.y.source[2] - plan.y.source[1];
    plan.method = shrinks ? Plan::Pieces : Plan::Maps;
    // Margins that fill the source leave an empty middle band, which stays
    // transparent. Otherwise an opaque source covers the whole target, and
    // without an alpha channel its bitmap is many times cheaper to build.
    const bool gaps = left + right == unsigned(sw) || top + bottom == unsigned(sh);
    plan.alpha = !opaque || gaps;
    return plan;
}

#ifdef __WXGTK__
// wxBitmap(wxImage) copies an image with alpha into a pixbuf pixel by
// pixel, which costs more than the rendering itself; the slices are written
// straight into the pixbuf the bitmap then adopts.
wxBitmap bitmapByMaps(const wxImage& source, const Plan& plan)
{
    GdkPixbuf* pixbuf = gdk_pixbuf_new(GDK_COLORSPACE_RGB, TRUE, 8, plan.width, plan.height);
    if (!pixbuf)
        return wxBitmap();
    unsigned char* pixels = gdk_pixbuf_get_pixels(pixbuf);
    const size_t stride = size_t(gdk_pixbuf_get_rowstride(pixbuf));
    fillByMaps(source, positionMap(plan.x), positionMap(plan.y),
               PixelPlanes{plan.width, pixels, stride, 4, pixels + 3, stride, 4});
    return wxBitmap(pixbuf);
}
#endif

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
#ifdef __WXGTK__
    const Plan plan = planOf(m_source, m_opaque, size, m_top, m_left, m_right, m_bottom);
    if (plan.method == Plan::Maps && plan.alpha && !m_source.HasMask()) {
        wxBitmap bitmap = bitmapByMaps(m_source, plan);
        if (bitmap.IsOk()) {
            m_rendered = bitmap;
            return;
        }
    }
#endif
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
    const Plan plan = planOf(m_source, m_opaque, size, m_top, m_left, m_right, m_bottom);
    switch (plan.method) {
    case Plan::Nothing:
        return wxImage();
    case Plan::Source:
        return m_source;
    case Plan::Scale:
        return m_source.Scale(plan.width, plan.height, wxIMAGE_QUALITY_NORMAL);
    case Plan::Maps:
    case Plan::Pieces:
        break;
    }
    wxImage target;
    if (plan.method == Plan::Pieces && plan.alpha) {
        target = CreateTransparentImage(plan.width, plan.height);
    } else {
        // The maps write every byte, alpha included: nothing to clear first.
        target = wxImage(plan.width, plan.height, false);
        if (plan.alpha)
            target.SetAlpha(static_cast<unsigned char*>(std::malloc(size_t(plan.width) * size_t(plan.height))), false);
    }
    if (m_source.HasMask())
        target.SetMaskColour(m_source.GetMaskRed(), m_source.GetMaskGreen(), m_source.GetMaskBlue());
    if (plan.method == Plan::Pieces) {
        wxImage source = m_source;
        fillByPieces(source, plan.x, plan.y, target);
    } else {
        fillByMaps(m_source, positionMap(plan.x), positionMap(plan.y), planesOf(target));
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
