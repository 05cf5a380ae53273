#include "app/OpenUrlOperation.h"

#include "frames/IDashboard.h"
#include "app/App.h"

namespace UIKit {

void OpenUrlOperation::DoOperation()
{
    // The address is one argument of xdg-open, never shell text.
    if (IDashboard* dashboard = App::m_pDashboard)
        dashboard->RunCommand({L"xdg-open", m_url});
}

} // namespace UIKit
