#include "ComCore/ITransport.h"

#include "Toolkit/ILogger.h"

namespace ComCore {

Toolkit::EventObject ITransport::s_evtEnableLogs(true, false);

void ITransport::EnableStreamLogs(bool enable)
{
    if (enable)
        s_evtEnableLogs.Set();
    else
        s_evtEnableLogs.Reset();
    TK_LOG(Toolkit::LogInfo) << "stream logs " << (enable ? "on" : "off");
}

} // namespace ComCore
