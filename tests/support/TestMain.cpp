// Test entry point: one wx application for the whole binary, then every
// test. GUI binaries get a full application (display from Xvfb); the
// platform binary gets the base library only.
#include <gtest/gtest.h>

#include "Toolkit/ILogger.h"

#include <wx/app.h>
#include <wx/init.h>

#ifdef UIKIT_TEST_GUI
#include <wx/image.h>

#include <gtk/gtk.h>

#include "Toolkit/WxLogForwarder.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

// wx's own messages go to the suite's logger, where tests capture them;
// wx's GUI log target would show them in a modal box that nobody closes.
class TestApp : public wxApp {
public:
    bool OnInit() override
    {
        wxInitAllImageHandlers();
        m_logForwarder.Install();
        return true;
    }
    int OnExit() override
    {
        m_logForwarder.Uninstall();
        return wxApp::OnExit();
    }

private:
    Toolkit::WxLogForwarder m_logForwarder;
};

// Under load, GTK now and then fails to open the display although the
// display server is there (seen under xvfb-run with several test processes
// at once). wx cannot start again after such a failure, but GTK can: the
// display is opened for GTK first, a few times if need be, a little longer
// apart each time, logging every failure; wx then finds GTK ready.
bool openDisplay()
{
    // As wx does: the tests run in the C locale unless they set another.
    // wx asks GTK again later, which GTK reports as too late: that one
    // warning is dropped, everything else goes to GLib's own writer.
    g_log_set_writer_func(
        [](GLogLevelFlags level, const GLogField* fields, gsize count, gpointer data) {
            for (gsize i = 0; i < count; ++i)
                if (std::strcmp(fields[i].key, "MESSAGE") == 0 && fields[i].length < 0 &&
                    g_str_has_prefix(static_cast<const char*>(fields[i].value), "gtk_disable_setlocale()"))
                    return G_LOG_WRITER_HANDLED;
            return g_log_writer_default(level, fields, count, data);
        },
        nullptr, nullptr);
    gtk_disable_setlocale();
    constexpr int c_attempts = 6;
    const char* display = std::getenv("DISPLAY");
    for (int attempt = 1;; ++attempt) {
        if (gtk_init_check(nullptr, nullptr))
            return true;
        TK_LOG(Toolkit::LogError) << "test main: cannot open display " << (display ? display : "(unset)")
                                  << ", attempt " << attempt << " of " << c_attempts;
        if (!display || attempt == c_attempts)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(100 * attempt));
    }
}

bool startGui(int& argc, char** argv)
{
    if (!openDisplay())
        return false;
    // wx then asks GTK again to leave the locale alone, which GTK reports
    // as too late in one warning line; the request was already made above.
    wxApp::SetInstance(new TestApp());
    return wxEntryStart(argc, argv);
}
} // namespace
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef UIKIT_TEST_GUI
    // Failed attempts to reach the display are shown whatever the log setting.
    const bool started = startGui(argc, argv);
#endif
    // Tests assert on log entries through captures; keep the console quiet.
    Toolkit::ILogger::Instance().SetStderrEnabled(std::getenv("UIKIT_TEST_LOG") != nullptr);
#ifdef UIKIT_TEST_GUI
    if (!started || !wxTheApp->CallOnInit()) {
        fprintf(stderr, "cannot start the GUI (is DISPLAY set? run under xvfb-run)\n");
        return 2;
    }
    const int result = RUN_ALL_TESTS();
    wxTheApp->OnExit();
    wxEntryCleanup();
    return result;
#else
    wxInitializer initializer(argc, argv);
    if (!initializer.IsOk())
        return 2;
    return RUN_ALL_TESTS();
#endif
}
