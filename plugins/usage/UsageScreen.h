#pragma once
// The data-usage screen: the month shown, the monthly allowance and the
// share of it used. The allowance lives in the preferences: put back each
// time the screen comes into view, saved whenever the user changes it.
#include "navigation/ScreenCtrl.h"

namespace usageplugin {

class UsageScreen : public UIKit::ScreenCtrl {
public:
    UsageScreen(wxWindow* parent, int id, const wxRect& bounds);

    void ScreenSlideEnter() override;

private:
    void restoreAllowance();
    void onValueChanged(wxCommandEvent& event);
};

} // namespace usageplugin
