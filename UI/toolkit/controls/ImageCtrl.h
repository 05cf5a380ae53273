#pragma once
#include "module/Export.h"
// A skin image rendered at a given size by the nine-slice rule: the corners
// are kept as they are, the edges are stretched along their length and the
// centre in both directions, so that one small image can dress a panel or a
// button of any size. Not a window: owners call Draw from their paint code.
#include "Toolkit/smart_ptr.h"

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

namespace UIKit {

class ImageDescriptor;

class UIKIT_API ImageCtrl {
public:
    // Margins in the order an image descriptor lists its "margin" values.
    ImageCtrl(const wxImage& image, const wxSize& size, unsigned int top, unsigned int left, unsigned int right,
              unsigned int bottom);
    ImageCtrl(Toolkit::smart_ptr<ImageDescriptor> descriptor, const wxSize& size);
    virtual ~ImageCtrl();

    // Renders the source at the size; an invalid source or a size below 1
    // keeps the previous rendering. A rendering with alpha is written
    // straight into the bitmap's pixels; the others go through RenderImage.
    virtual void Resize(const wxSize& size);
    // Draws the current rendering, transparency included, at the point.
    virtual void Draw(wxDC& dc, const wxPoint& at);

    // The image Resize would turn into the rendered bitmap (invalid when it
    // would render nothing).
    wxImage RenderImage(const wxSize& size) const;

    const wxBitmap& GetBitmap() const { return m_rendered; }
    wxSize GetSize() const { return m_rendered.IsOk() ? m_rendered.GetSize() : wxSize(0, 0); }
    const wxImage& GetSourceImage() const { return m_source; }
    unsigned int GetMarginLeft() const { return m_left; }
    unsigned int GetMarginRight() const { return m_right; }
    unsigned int GetMarginTop() const { return m_top; }
    unsigned int GetMarginBottom() const { return m_bottom; }

    // The descriptor's four "margin" values in the constructor's order (top,
    // left, right, bottom); a negative value counts as 0.
    static void MarginsOf(const ImageDescriptor& descriptor, unsigned int margins[4]);

    // An image of that size whose alpha is 0 everywhere.
    static wxImage CreateTransparentImage(int width, int height);
    // Copies a rectangle of source pixels to (tx, ty) of the target; a width
    // or height of -1 takes the whole source. See the .cpp for alpha rules.
    static void BlitImage(wxImage& source, int x, int y, int width, int height, wxImage& target, int tx, int ty,
                          bool forceAlpha);
    static void BlitImage(wxImage& source, wxImage& target, int tx, int ty);

private:
    unsigned int m_left;
    unsigned int m_right;
    unsigned int m_top;
    unsigned int m_bottom;
    wxImage m_source;
    wxBitmap m_rendered;
    // The source has no partly transparent pixel, so renderings need no alpha.
    bool m_opaque;
};

} // namespace UIKit
