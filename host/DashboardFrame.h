#pragma once
// The connection manager's main window, built from the pack's "dashboard"
// description: a header, a navigation bar and the placeholder in which the
// navigation shows the plug-ins' screens.
#include "CultureRelabel.h"

#include "frames/IDashboard.h"

namespace host {

class DashboardFrame : public UIKit::IDashboard {
public:
    explicit DashboardFrame(const wxRect& bounds);
    ~DashboardFrame() override;

    // Builds the window from the pack's "dashboard" description; false when
    // the pack has none or its class is unknown. A description without a
    // placeholder is reported: the window then shows no screens.
    bool LoadDashboard();

    // Puts the named screen (built on first use) in the placeholder in place
    // of the one shown, sliding when asked, and selects the navigation
    // button that the screen's group names.
    bool ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int argument1, int argument2) override;
    void OnPendingChanges(const TString<wchar_t>& key, int32_t value) override;
    void SetScreenTitle(const TString<wchar_t>& title) override;
    void SetBusy(bool busy) override;
    void Reduce() override;
    void BringToFront() override;
    bool RunCommand(const std::vector<TString<wchar_t>>& argv) override;
    // Labels are resolved when descriptions are read: the header, the
    // navigation bar and every screen, built so far or later, take the
    // labels of their descriptions read again.
    void OnCultureChanged() override;
    void OnBeforeTransition() override;
    void OnDeviceStateChanged() override;

private:
    // A click that reaches the frame (the navigation bar's buttons) is a
    // navigation event; the frame's own buttons go on to their handlers.
    void onButton(wxCommandEvent& event);
    // Keys pressed anywhere in the window may be hot keys of a plug-in.
    void onCharHook(wxKeyEvent& event);
    void onClose(wxCloseEvent& event);
    void swapScreens(UIKit::ScreenCtrl* previous, UIKit::ScreenCtrl* next, UIKit::Animation animation);
    void selectNavigation(const UIKit::ScreenCtrl& screen);

    CultureRelabel m_relabel;

    wxDECLARE_EVENT_TABLE();
};

} // namespace host
