// Test entry point: one wx application for the whole binary, then every
// test. GUI binaries get a full application (display from Xvfb); the
// platform binary gets the base library only.
#include <gtest/gtest.h>

#include "Toolkit/ILogger.h"

#include <wx/app.h>
#include <wx/init.h>

#ifdef UIKIT_TEST_GUI
#include <wx/image.h>

namespace {
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
    // Tests assert on log entries through captures; keep the console quiet.
    Toolkit::ILogger::Instance().SetStderrEnabled(std::getenv("UIKIT_TEST_LOG") != nullptr);
#ifdef UIKIT_TEST_GUI
    wxApp::SetInstance(new TestApp());
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
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
