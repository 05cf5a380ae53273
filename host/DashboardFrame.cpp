#include "DashboardFrame.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "appearance/Appearance.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "app/AppController.h"
#include "controls/NumericUpDownCtrl.h"
#include "Preferences/AppPreferences.h"
#include "util/Util.h"

#include <cstring>
#include <spawn.h>
#include <thread>
#include <sys/wait.h>

extern char** environ;

namespace host {

namespace {

const char* const c_strUsageSection = "DataUsage";
const char* const c_strAllowanceKey = "MonthlyAllowance";
const wchar_t* const c_strAllowanceControl = L"Allowance";

} // namespace

wxBEGIN_EVENT_TABLE(DashboardFrame, UIKit::IDashboard)
    EVT_BUTTON(UIKit::ID_CONNECT, DashboardFrame::onConnect)
    EVT_BUTTON(UIKit::ID_DISCONNECT, DashboardFrame::onDisconnect)
    EVT_CLOSE(DashboardFrame::onClose)
wxEND_EVENT_TABLE()

DashboardFrame::DashboardFrame(const wxRect& bounds) : UIKit::IDashboard(bounds)
{
    Bind(wxEventTypeTag<wxCommandEvent>(UIKit::NumericUpDownCtrl::EVT_VALUE_CHANGED), &DashboardFrame::onValueChanged,
         this);
}

bool DashboardFrame::LoadDashboard()
{
    auto descriptor = UIKit::CtrlFactory::Instance()->CreateDescriptorFromPack(L"dashboard");
    if (!descriptor)
        return false;
    // Labels are resolved when a description is read, so a new language
    // means reading it again and rebuilding the children.
    DestroyChildren();
    LoadDescriptor(descriptor);
    restoreAllowance();
    return true;
}

void DashboardFrame::restoreAllowance()
{
    auto* allowance = dynamic_cast<UIKit::NumericUpDownCtrl*>(FindWindowByName(c_strAllowanceControl, this));
    auto preferences = Preferences::AppPreferences::Open(c_strUsageSection);
    TString<wchar_t> text;
    if (!allowance || !preferences || !preferences->Get(c_strAllowanceKey, text))
        return;
    try {
        allowance->SetValue(std::stoll(text));
    } catch (const std::exception&) {
        TK_LOG(Toolkit::LogError) << "the saved monthly allowance is not a number; the pack's value is kept";
    }
}

void DashboardFrame::onValueChanged(wxCommandEvent& event)
{
    auto* allowance = dynamic_cast<UIKit::NumericUpDownCtrl*>(event.GetEventObject());
    if (!allowance || allowance->GetName() != c_strAllowanceControl)
        return;
    if (auto preferences = Preferences::AppPreferences::Open(c_strUsageSection))
        preferences->Set(c_strAllowanceKey, TString<wchar_t>(std::to_wstring(allowance->GetValue())));
}

void DashboardFrame::setStatus(const char* key)
{
    auto appearance = UIKit::Appearance::Instance();
    if (appearance)
        UIKit::Util::SetWindowLabel(this, TString<wchar_t>(L"Status"), appearance->GetStr(TString<char>(key)));
}

void DashboardFrame::onConnect(wxCommandEvent&)
{
    setStatus("LB_STATUS_CONNECTED");
    UIKit::Util::EnableWindow(this, UIKit::ID_CONNECT, false);
    UIKit::Util::EnableWindow(this, UIKit::ID_DISCONNECT, true);
}

void DashboardFrame::onDisconnect(wxCommandEvent&)
{
    setStatus("LB_STATUS_NO_DEVICE");
    UIKit::Util::EnableWindow(this, UIKit::ID_DISCONNECT, false);
    UIKit::Util::EnableWindow(this, UIKit::ID_CONNECT, true);
}

void DashboardFrame::onClose(wxCloseEvent& event)
{
    auto controller = UIKit::AppController::Instance();
    if (event.CanVeto() && controller && !controller->DispatchAppRequestClose()) {
        event.Veto();
        return;
    }
    if (controller)
        controller->DispatchAppStopping();
    m_closingEvent->Set();
    event.Skip();
}

bool DashboardFrame::ShowScreen(const TString<wchar_t>& name, UIKit::Animation, int, int)
{
    TK_LOG(Toolkit::LogInfo) << "no screen named " << name << " in this dashboard yet";
    return false;
}

void DashboardFrame::OnPendingChanges(const TString<wchar_t>&, int32_t) {}

void DashboardFrame::SetScreenTitle(const TString<wchar_t>& title)
{
    SetTitle(wxString(title));
}

void DashboardFrame::SetBusy(bool busy)
{
    if (busy)
        SetWaitCursor();
    else
        RestorePreviousCursor();
}

void DashboardFrame::Reduce()
{
    Iconize(true);
}

void DashboardFrame::BringToFront()
{
    if (IsIconized())
        Iconize(false);
    Show(true);
    Raise();
}

bool DashboardFrame::RunCommand(const std::vector<TString<wchar_t>>& argv)
{
    // No shell: each element reaches the program as one argument, so an
    // address can never run a command.
    if (argv.empty())
        return false;
    std::vector<std::string> storage;
    for (const auto& arg : argv)
        storage.push_back(Toolkit::UTF8::ToUTF8(arg));
    std::vector<char*> args;
    for (auto& arg : storage)
        args.push_back(arg.data());
    args.push_back(nullptr);
    pid_t pid = 0;
    const int error = posix_spawnp(&pid, args[0], nullptr, nullptr, args.data(), environ);
    if (error != 0) {
        TK_LOG(Toolkit::LogError) << "cannot start " << storage[0] << ": " << std::strerror(error);
        return false;
    }
    // Reap the child without blocking the caller.
    std::thread([pid] { waitpid(pid, nullptr, 0); }).detach();
    return true;
}

void DashboardFrame::OnCultureChanged()
{
    LoadDashboard();
    Refresh(true);
}
void DashboardFrame::OnBeforeTransition() {}
void DashboardFrame::OnDeviceStateChanged() {}

} // namespace host
