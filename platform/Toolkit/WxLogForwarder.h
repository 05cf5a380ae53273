#pragma once
// Sends wxWidgets' log messages to the suite's logger: wx errors and
// warnings become LogError entries, everything else LogInfo, each with the
// source place wx recorded.
//
// Install() makes the forwarder wx's active log target and remembers the
// previous one; Uninstall() (also run by the destructor) puts that one back
// if the forwarder is still active. The forwarder is owned by its creator,
// never by wx, so it must be uninstalled before wx shuts down. wx holds back
// messages logged on other threads until the main thread flushes them.
#include <wx/log.h>

namespace Toolkit {

class WxLogForwarder : public wxLog {
public:
    WxLogForwarder() = default;
    ~WxLogForwarder() override;

    void Install();
    void Uninstall();
    bool IsInstalled() const { return m_installed; }

protected:
    void DoLogRecord(wxLogLevel level, const wxString& message, const wxLogRecordInfo& info) override;

private:
    wxLog* m_previous = nullptr;
    bool m_installed = false;
};

} // namespace Toolkit
