#include "Toolkit/WxLogForwarder.h"

#include "Toolkit/ILogger.h"

namespace Toolkit {

WxLogForwarder::~WxLogForwarder()
{
    Uninstall();
}

void WxLogForwarder::Install()
{
    if (m_installed)
        return;
    m_previous = wxLog::SetActiveTarget(this);
    m_installed = true;
}

void WxLogForwarder::Uninstall()
{
    if (!m_installed)
        return;
    // Whoever replaced us since owns the active target now; leave it alone.
    // (Swapping, rather than asking GetActiveTarget, never makes wx create
    // a default target.)
    wxLog* current = wxLog::SetActiveTarget(m_previous);
    if (current != this)
        wxLog::SetActiveTarget(current);
    m_previous = nullptr;
    m_installed = false;
}

void WxLogForwarder::DoLogRecord(wxLogLevel level, const wxString& message, const wxLogRecordInfo& info)
{
    const int severity = level <= wxLOG_Warning ? LogError : LogInfo;
    LogStream(severity, info.filename ? info.filename : "", info.line, info.func ? info.func : "")
        << message.ToStdWstring();
}

} // namespace Toolkit
