#include "lists/IDelegate.h"

#include "Toolkit/ILogger.h"
#include "app/App.h"
#include "frames/IDashboard.h"

namespace UIKit {

void IDelegate::doFlush()
{
    reportPendingChanges();
}

void IDelegate::doRollback()
{
    reportPendingChanges();
}

void IDelegate::reportPendingChanges()
{
    if (!App::m_pDashboard) {
        TK_LOG(Toolkit::LogError) << "delegate: no dashboard to report pending changes to";
        return;
    }
    App::m_pDashboard->OnPendingChanges(m_pendingKey, m_pendingValue);
}

} // namespace UIKit
