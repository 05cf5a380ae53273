#include "navigation/TransitionNotice.h"

#include "descriptors/EventDescriptor.h"
#include "frames/IDashboard.h"
#include "navigation/TransitionManager.h"
#include "Toolkit/UTF8.h"
#include "xml/ErrorSink.h"

namespace UIKit {

void NotifyBeforeTransition()
{
    if (auto* dashboard = IDashboard::s_pCurrent)
        dashboard->OnBeforeTransition();
}

void ReportUnknownTransition(const EventDescriptor& row)
{
    if (row.file.empty()) {
        // Rows made in code have no file: the registry logs the name.
        if (const auto transitions = TransitionManager::Instance())
            transitions->Get(row.transition);
        return;
    }
    ErrorSink::Report(row.file, row.line,
                      "Transition [" + Toolkit::UTF8::ToUTF8(row.transition) + "] not found!");
}

} // namespace UIKit
