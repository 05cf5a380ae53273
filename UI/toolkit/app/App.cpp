#include "app/App.h"
#include "frames/IDashboard.h"

namespace UIKit {

App* App::m_wxApp = nullptr;
IDashboard*& App::m_pDashboard = IDashboard::s_pCurrent;

bool App::OnInit()
{
    m_wxApp = this;
    if (!m_logForwarder) {
        m_logForwarder = Toolkit::make_smart<Toolkit::WxLogForwarder>();
        m_logForwarder->Install();
    }
    return true;
}

int App::OnExit()
{
    if (m_logForwarder)
        m_logForwarder->Uninstall();
    return wxApp::OnExit();
}

} // namespace UIKit
