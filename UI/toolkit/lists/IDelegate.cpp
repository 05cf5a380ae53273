#include "lists/IDelegate.h"

#include "Toolkit/ILogger.h"
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
    if (!IDashboard::s_pCurrent) {
        TK_LOG(Toolkit::LogError) << "delegate: no dashboard to report pending changes to";
        return;
    }
    IDashboard::s_pCurrent->OnPendingChanges(m_pendingKey, m_pendingValue);
}

} // namespace UIKit
