// Test entry point: one wx application for the whole binary, then every
// test. GUI binaries get a full application (display from Xvfb); the
// platform binary gets the base library only.
#include <gtest/gtest.h>

#include "Toolkit/ILogger.h"

#include <wx/app.h>
#include <wx/init.h>

#ifdef UIKIT_TEST_GUI
#include <wx/image.h>

#include <X11/Xlib.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace {

// A display server started just before the tests (xvfb-run under load) may
// not accept connections yet: try a few times, a little longer each time,
// and log every failed attempt, before the GUI library opens its own.
bool waitForDisplay()
{
    const char* name = std::getenv("DISPLAY");
    constexpr int c_attempts = 6;
    for (int attempt = 1; attempt <= c_attempts; ++attempt) {
        if (Display* display = XOpenDisplay(name)) {
            XCloseDisplay(display);
            return true;
        }
        TK_LOG(Toolkit::LogError) << "test main: cannot open display " << (name ? name : "(unset)") << ", attempt "
                                  << attempt << " of " << c_attempts;
        if (!name || attempt == c_attempts)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(100 * attempt));
    }
    return false;
}

class TestApp : public wxApp {
public:
    bool OnInit() override
    {
        wxInitAllImageHandlers();
        return true;
    }
};
} // namespace
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef UIKIT_TEST_GUI
    // Failed attempts to reach the display are shown whatever the log setting.
    const bool displayReady = waitForDisplay();
#endif
    // Tests assert on log entries through captures; keep the console quiet.
    Toolkit::ILogger::Instance().SetStderrEnabled(std::getenv("UIKIT_TEST_LOG") != nullptr);
#ifdef UIKIT_TEST_GUI
    wxApp::SetInstance(new TestApp());
    if (!displayReady || !wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
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
