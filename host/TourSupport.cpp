#include "TourSupport.h"

#include <wx/timer.h>
#include <wx/window.h>

#include <gtk/gtk.h>

namespace host {

bool SaveScreenshot(const wxString& path)
{
    GdkWindow* root = gdk_get_default_root_window();
    GdkPixbuf* pixels = gdk_pixbuf_get_from_window(root, 0, 0, gdk_window_get_width(root), gdk_window_get_height(root));
    if (!pixels)
        return false;
    const bool saved = gdk_pixbuf_save(pixels, path.utf8_str(), "png", nullptr, nullptr);
    g_object_unref(pixels);
    return saved;
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
