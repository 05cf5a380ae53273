#pragma once
// The connection screen: status, PIN box, Connect and Disconnect. The two
// buttons are handled here; every other button navigates.
#include "navigation/ScreenCtrl.h"

namespace homeplugin {

class HomeScreen : public UIKit::ScreenCtrl {
public:
    HomeScreen(wxWindow* parent, int id, const wxRect& bounds);

    bool DoEvent(int id) override;
    // The status is written here, not by the description: again each time
    // the screen comes into view, in case the language changed meanwhile.
    void ScreenSlideEnter() override;
    void SetConnected(bool connected);
    bool IsConnected() const { return m_connected; }

private:
    bool m_connected = false;
};

} // namespace homeplugin
