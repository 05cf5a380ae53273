#pragma once
#include "module/Export.h"
// Static helpers shared by the controls and screens: display formatting of
// volumes, speeds, durations and phone numbers; fitting labels into boxes;
// finding, showing, enabling and labelling controls by id or name; short
// resize and slide animations; colour and image helpers; opening a web
// address without blocking the interface. Nothing here keeps state.
//
// Declared here, below the controls, so that controls can fit their labels
// and tint their images. The label and image helpers are defined beside this
// header; the helpers that reach controls, the string table or the
// dashboard (window lookups, animations, number formatting, the browser)
// are defined in app/, above everything they use.
#include "Toolkit/Bytes.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/image.h>
#include <wx/window.h>

#include <cstdint>

namespace UIKit {

class Control;
class FontDescriptor;

class UIKIT_API Util {
public:
    enum MotionType : int32_t {
        ResizeHorizontal = 0,
        ResizeVertical = 1,
        ResizeBoth = 2,
        SlideLeft = 3,
        SlideRight = 4,
        SlideDown = 5,
        SlideUp = 6,
    };
    enum FormatType : int {
        OneLineEllipsis = 0, // one line ending in "..." when the text does not fit
        Wrapped = 1,         // wrapped over as many lines as needed
    };

    // Text formatting.
    static void FormatDataVolume(TString<wchar_t>& out, uint64_t bytes);
    static void FormatDataSpeed(TString<wchar_t>& out, uint64_t bytesPerSecond);
    static void FormatDuration(TString<wchar_t>& out, uint64_t milliseconds);
    static void FormatMsisdn(TString<wchar_t>& out, const TString<wchar_t>& number);

    // Label fitting; the font descriptor's font is selected into the DC.
    static wxSize CutLine(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                          const TString<wchar_t>& text, TString<wchar_t>& out);
    static void FormatLabel(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                            const TString<wchar_t>& text, FormatType mode, TString<wchar_t>& out);
    static void FormatLabelMultiline(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                                     const TString<wchar_t>& text, TString<wchar_t>& out);

    // Windows by id (only controls count) or by name (depth first, exact).
    static bool ShowWindow(wxWindow* parent, int id, bool show, bool children);
    static bool ShowWindow(wxWindow* parent, const TString<wchar_t>& name, bool show, bool children);
    static bool EnableWindow(wxWindow* parent, int id, bool enable);
    static bool EnableWindow(wxWindow* parent, const TString<wchar_t>& name, bool enable);
    static bool GetWindowLabel(wxWindow* parent, int id, TString<wchar_t>& label);
    static bool GetWindowLabel(wxWindow* parent, const TString<wchar_t>& name, TString<wchar_t>& label);
    static bool SetWindowLabel(wxWindow* parent, int id, const TString<wchar_t>& label);
    static bool SetWindowLabel(wxWindow* parent, const TString<wchar_t>& name, const TString<wchar_t>& label);
    static Control* FindControl(wxWindow* parent, int id);
    static Control* RecursiveFindControl(wxWindow* parent, const TString<wchar_t>& name);
    template <class T>
    static T* FindControl(wxWindow* parent, const TString<wchar_t>& name, bool recursive);
    static bool IsWindowIsThisOrChildRecursive(const wxWindow* window, const wxWindow* candidate);

    // Animations (about ten frames of at least 25 ms, on the GUI thread).
    static void AnimatedSizeChange(wxWindow* window, int fromWidth, int fromHeight, int toWidth, int toHeight,
                                   MotionType type, bool refresh);
    static void SizeChange(wxWindow* w, int fw, int fh, int tw, int th) { AnimatedSizeChange(w, fw, fh, tw, th, ResizeBoth, true); }
    static void VSizeChange(wxWindow* w, int fw, int fh, int tw, int th) { AnimatedSizeChange(w, fw, fh, tw, th, ResizeVertical, true); }
    static void HSizeChange(wxWindow* w, int fw, int fh, int tw, int th) { AnimatedSizeChange(w, fw, fh, tw, th, ResizeHorizontal, true); }
    static void AnimatedSlide(wxWindow* outgoing, wxWindow* incoming, const wxPoint& start, const wxSize& end,
                              MotionType type);
    static void HLSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end);
    static void HRSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end);
    static void VDSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end);
    static void VUSlide(Control* out, Control* in, const wxPoint& start, const wxSize& end);

    // Images and colours.
    static void ScaleWithRatio(const wxSize& box, wxImage& image, wxPoint& offset);
    static void GetBitmapAlphaColor(wxBitmap& bitmap, const wxColour& colour, const wxSize& size);
    static void DrawAlphaColor(wxDC& dc, const wxColour& colour, const wxSize& size);
    static wxImage ConvertBytesToImage(Toolkit::smart_ptr<Toolkit::Bytes> bytes);

    // Opens the address in the desktop's browser from a pool thread.
    static void OpenBrowserUrl(const TString<wchar_t>& url);

private:
    static TString<wchar_t> firstPiece(wxDC& dc, const wxSize& box, const Toolkit::smart_ptr<FontDescriptor>& font,
                                       const TString<wchar_t>& word);
};

template <class T>
T* Util::FindControl(wxWindow* parent, const TString<wchar_t>& name, bool recursive)
{
    if (!parent)
        return nullptr;
    if (recursive)
        return dynamic_cast<T*>(RecursiveFindControl(parent, name));
    for (wxWindow* child : parent->GetChildren())
        if (child->GetName() == wxString(name))
            return dynamic_cast<T*>(child);
    return nullptr;
}

} // namespace UIKit
