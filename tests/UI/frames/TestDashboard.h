#pragma once
// A dashboard whose host operations do nothing, for tests that need the
// main window (App::m_pDashboard), a place for screens, or the dashboard's
// own behaviour.
#include "controls/PanelCtrl.h"
#include "frames/IDashboard.h"

namespace frametest {

class TestDashboard : public UIKit::IDashboard {
public:
    TestDashboard() : IDashboard(wxRect(0, 0, 200, 150))
    {
        m_pControlPlaceholder = new UIKit::PanelCtrl(this, wxID_ANY, wxRect(0, 0, 300, 300));
    }
    bool ShowScreen(const TString<wchar_t>&, UIKit::Animation, int, int) override { return false; }
    void OnPendingChanges(const TString<wchar_t>&, int32_t) override {}
    void SetScreenTitle(const TString<wchar_t>&) override {}
    void SetBusy(bool) override {}
    void Reduce() override {}
    void BringToFront() override {}
    bool RunCommand(const std::vector<TString<wchar_t>>&) override { return false; }
    void OnCultureChanged() override {}
    void OnBeforeTransition() override {}
    void OnDeviceStateChanged() override {}
};

} // namespace frametest
