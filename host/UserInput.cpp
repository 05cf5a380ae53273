#include "UserInput.h"

#include "DashboardFrame.h"

#include "controls/Control.h"
#include "navigation/ScreenCtrl.h"
#include "util/Util.h"

namespace host {

bool Click(DashboardFrame& frame, int id)
{
    wxWindow* screen = frame.GetCurrentRunningScreen();
    wxWindow* button = screen ? UIKit::Util::FindControl(screen, id) : nullptr;
    if (!button)
        button = wxWindow::FindWindowById(id, &frame);
    if (!button)
        return false;
    wxCommandEvent event(wxEVT_COMMAND_BUTTON_CLICKED, id);
    event.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(event);
    return true;
}

void PressKey(DashboardFrame& frame, int key)
{
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    event.SetEventObject(&frame);
    frame.GetEventHandler()->ProcessEvent(event);
}

} // namespace host
