// Benchmark entry point: a wx application (display from Xvfb) so that
// benchmarks of windows and images can run next to plain ones, then every
// registered benchmark.
#include <benchmark/benchmark.h>

#include "Toolkit/ILogger.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/init.h>

#include <cstdio>

namespace {

class BenchApp : public wxApp {
public:
    bool OnInit() override
    {
        wxInitAllImageHandlers();
        return true;
    }
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // Log entries would only disturb the timings.
    Toolkit::ILogger::Instance().SetStderrEnabled(false);
    wxApp::SetInstance(new BenchApp());
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
        std::fprintf(stderr, "cannot start the GUI (is DISPLAY set? run under xvfb-run)\n");
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    wxTheApp->OnExit();
    wxEntryCleanup();
    return 0;
}
