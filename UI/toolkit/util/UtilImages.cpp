// Util: colour and image helpers.
#include "util/Util.h"

#include <wx/dcmemory.h>
#include <wx/mstream.h>
#include <wx/rawbmp.h>

namespace UIKit {

void Util::ScaleWithRatio(const wxSize& box, wxImage& image, wxPoint& offset)
{
    if (!image.IsOk() || box.x <= 0 || box.y <= 0)
        return;
    const double w = image.GetWidth();
    const double h = image.GetHeight();
    wxSize size;
    if (w <= h) {
        const double ratio = h / box.y;
        size = wxSize(int(w / ratio), box.y);
        offset = wxPoint((box.x - size.x) / 2, 0);
    } else {
        const double ratio = w / box.x;
        size = wxSize(box.x, int(h / ratio));
        offset = wxPoint(0, (box.y - size.y) / 2);
    }
    image.Rescale(std::max(size.x, 1), std::max(size.y, 1), wxIMAGE_QUALITY_HIGH);
}

void Util::GetBitmapAlphaColor(wxBitmap& bitmap, const wxColour& colour, const wxSize& size)
{
    // Built as an image so every pixel carries the colour's alpha.
    wxImage image(std::max(size.x, 1), std::max(size.y, 1), false);
    image.SetRGB(wxRect(wxPoint(0, 0), image.GetSize()), colour.Red(), colour.Green(), colour.Blue());
    image.InitAlpha();
    unsigned char* alpha = image.GetAlpha();
    std::fill(alpha, alpha + size_t(image.GetWidth()) * size_t(image.GetHeight()), colour.Alpha());
    bitmap = wxBitmap(image, 32);
}

void Util::DrawAlphaColor(wxDC& dc, const wxColour& colour, const wxSize& size)
{
    wxBitmap bitmap;
    GetBitmapAlphaColor(bitmap, colour, size);
    dc.DrawBitmap(bitmap, 0, 0, true);
}

wxImage Util::ConvertBytesToImage(Toolkit::smart_ptr<Toolkit::Bytes> bytes)
{
    if (!bytes || bytes->IsEmpty())
        return wxNullImage;
    wxMemoryInputStream stream(bytes->GetData(), bytes->GetSize());
    wxImage image;
    if (!image.LoadFile(stream, wxBITMAP_TYPE_ANY))
        return wxNullImage;
    return image;
}

} // namespace UIKit
