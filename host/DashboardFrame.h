#pragma once
// The connection manager's main window, built from the pack's "dashboard"
// description.
#include "frames/IDashboard.h"

namespace host {

class DashboardFrame : public UIKit::IDashboard {
public:
    explicit DashboardFrame(const wxRect& bounds);

    // Builds the window from the pack's "dashboard" description; false when
    // the pack has none or its class is unknown.
    bool LoadDashboard();

    bool ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int argument1, int argument2) override;
    void OnPendingChanges(const TString<wchar_t>& key, int32_t value) override;
    void SetScreenTitle(const TString<wchar_t>& title) override;
    void SetBusy(bool busy) override;
    void Reduce() override;
    void BringToFront() override;
    bool RunCommand(const std::vector<TString<wchar_t>>& argv) override;
    void OnCultureChanged() override;
    void OnBeforeTransition() override;
    void OnDeviceStateChanged() override;

private:
    void onConnect(wxCommandEvent& event);
    void onDisconnect(wxCommandEvent& event);
    void onClose(wxCloseEvent& event);
    // The monthly data allowance lives in the preferences: shown when the
    // dashboard is built (again after a language change), saved when changed.
    void restoreAllowance();
    void onValueChanged(wxCommandEvent& event);
    void setStatus(const char* key);

    wxDECLARE_EVENT_TABLE();
};

} // namespace host
