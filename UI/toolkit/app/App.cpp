#include "app/App.h"

namespace UIKit {

App* App::m_wxApp = nullptr;
IDashboard* App::m_pDashboard = nullptr;

bool App::OnInit()
{
    m_wxApp = this;
    return true;
}

} // namespace UIKit
