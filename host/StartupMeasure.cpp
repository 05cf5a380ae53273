#include "StartupMeasure.h"

#include "Toolkit/ILogger.h"

#include <wx/window.h>

#include <cstdio>
#include <memory>

namespace host {

// The processor time shows a stage's own cost on a loaded machine, where the
// elapsed time mostly shows the wait for a core.
void LogStartupStage(const char* stage)
{
    TK_LOG(Toolkit::LogInfo) << "start-up: " << stage << " after " << MillisecondsSinceProcessStart() << " ms ("
                             << ProcessorMilliseconds() << " ms of processor time)";
}

void ReportFirstPaint(wxWindow& window, void (*done)())
{
    auto reported = std::make_shared<bool>(false);
    window.Bind(wxEVT_PAINT, [&window, reported, done](wxPaintEvent& event) {
        event.Skip();
        if (*reported)
            return;
        *reported = true;
        // Stamped once this paint (and the window's own handler) is over.
        window.CallAfter([done] {
            LogStartupStage("first paint");
            std::printf("%.0f ms\n", MillisecondsSinceProcessStart());
            std::fflush(stdout);
            done();
        });
    });
}

} // namespace host
