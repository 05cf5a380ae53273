#include "HomeScreen.h"

#include "appearance/Appearance.h"
#include "factory/ControlIds.h"
#include "util/Util.h"

namespace homeplugin {

HomeScreen::HomeScreen(wxWindow* parent, int id, const wxRect& bounds) : ScreenCtrl(parent, id, bounds, false) {}

bool HomeScreen::DoEvent(int id)
{
    if (id != UIKit::ID_CONNECT && id != UIKit::ID_DISCONNECT)
        return ScreenCtrl::DoEvent(id);
    SetConnected(id == UIKit::ID_CONNECT);
    return true;
}

void HomeScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    SetConnected(m_connected);
}

void HomeScreen::SetConnected(bool connected)
{
    m_connected = connected;
    if (auto appearance = UIKit::Appearance::Instance())
        UIKit::Util::SetWindowLabel(this, TString<wchar_t>(L"Status"),
                                    appearance->GetStr(connected ? "LB_STATUS_CONNECTED" : "LB_STATUS_NO_DEVICE"));
    UIKit::Util::EnableWindow(this, UIKit::ID_CONNECT, !connected);
    UIKit::Util::EnableWindow(this, UIKit::ID_DISCONNECT, connected);
}

} // namespace homeplugin
