#include "TourSupport.h"

#include <wx/dir.h>
#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <gtk/gtk.h>

#include <algorithm>
#include <utility>

namespace host {
namespace {

// File names as the tour took them; a screen shot again keeps its place.
std::vector<wxString>& shotOrder()
{
    static std::vector<wxString> order;
    return order;
}

wxString escaped(wxString text)
{
    text.Replace("&", "&amp;");
    text.Replace("<", "&lt;");
    text.Replace("\"", "&quot;");
    return text;
}

} // namespace

bool SaveScreenshot(const wxString& path)
{
    GdkWindow* root = gdk_get_default_root_window();
    GdkPixbuf* pixels = gdk_pixbuf_get_from_window(root, 0, 0, gdk_window_get_width(root), gdk_window_get_height(root));
    if (!pixels)
        return false;
    const bool saved = gdk_pixbuf_save(pixels, path.utf8_str(), "png", nullptr, nullptr);
    g_object_unref(pixels);
    if (!saved)
        return false;
    const wxFileName file(path);
    auto& order = shotOrder();
    if (std::find(order.begin(), order.end(), file.GetFullName()) == order.end())
        order.push_back(file.GetFullName());
    WriteScreenshotIndex(file.GetPath(), order);
    return true;
}

bool WriteScreenshotIndex(const wxString& folder, const std::vector<wxString>& order)
{
    wxArrayString found;
    wxDir::GetAllFiles(folder, &found, "*.png", wxDIR_FILES);
    std::vector<wxString> names;
    for (const wxString& path : found)
        names.push_back(wxFileName(path).GetFullName());
    // The tour's order first, then the rest by name.
    auto rank = [&order](const wxString& name) {
        return std::pair(std::find(order.begin(), order.end(), name) - order.begin(), name);
    };
    std::sort(names.begin(), names.end(), [&rank](const wxString& a, const wxString& b) { return rank(a) < rank(b); });

    wxString page = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Connection manager: the tour</title>\n"
                    "<style>body{font-family:sans-serif;background:#222;color:#eee}"
                    "figure{display:inline-block;margin:8px}img{width:640px;border:1px solid #555}</style>\n"
                    "</head><body>\n<h1>Connection manager: the tour</h1>\n";
    for (const wxString& name : names) {
        const wxString file = escaped(name);
        page += "<figure><a href=\"" + file + "\"><img src=\"" + file + "\" alt=\"" + file +
                "\"></a><figcaption>" + file + "</figcaption></figure>\n";
    }
    page += "</body></html>\n";
    wxFFile out(wxFileName(folder, "index.html").GetFullPath(), "w");
    return out.IsOpened() && out.Write(page, wxConvUTF8) && out.Close();
}

void RunWhileWindowLives(wxWindow& window, wxTimer* timer, int milliseconds)
{
    wxWindow* self = &window;
    window.Bind(wxEVT_DESTROY, [timer, self](wxWindowDestroyEvent& e) {
        if (e.GetWindow() == self)
            delete timer;
        e.Skip();
    });
    timer->Start(milliseconds);
}

} // namespace host
