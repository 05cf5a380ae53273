#include "DashboardFrame.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "app/AppController.h"
#include "controls/Control.h"
#include "descriptors/ScreenDescriptor.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "navigation/HotkeysManager.h"
#include "navigation/ScreenCtrl.h"
#include "navigation/ScreenManager.h"
#include "navigation/SequenceManager.h"
#include "plugins/PluginManager.h"
#include "settings/SettingPanel.h"
#include "settings/SettingRootScreen.h"
#include "util/Util.h"
#include "xml/ErrorSink.h"

#include <cstring>
#include <spawn.h>
#include <thread>
#include <sys/wait.h>

extern char** environ;

namespace host {

wxBEGIN_EVENT_TABLE(DashboardFrame, UIKit::IDashboard)
    EVT_CLOSE(DashboardFrame::onClose)
wxEND_EVENT_TABLE()

DashboardFrame::DashboardFrame(const wxRect& bounds) : UIKit::IDashboard(bounds)
{
    // Bound handlers run before the frame's event table, which closes and
    // minimises.
    Bind(wxEVT_BUTTON, &DashboardFrame::onButton, this);
    Bind(wxEVT_CHAR_HOOK, &DashboardFrame::onCharHook, this);
    // Settings pages are built while the settings are shown, from templates
    // read at start: they take the labels of the current language too.
    UIKit::SettingRootScreen::SetPageHook([this](UIKit::SettingPanel& page) {
        m_relabel.ForgetWindows(&page);
        m_relabel.ApplyToScreen(&page);
    });
}

DashboardFrame::~DashboardFrame()
{
    UIKit::SettingRootScreen::SetPageHook({});
    if (UIKit::IDashboard::s_pCurrent == this)
        UIKit::IDashboard::s_pCurrent = nullptr;
}

bool DashboardFrame::LoadDashboard()
{
    auto descriptor = UIKit::CtrlFactory::Instance()->CreateDescriptorFromPack(L"dashboard");
    if (!descriptor)
        return false;
    LoadDescriptor(descriptor);
    m_pControlPlaceholder = UIKit::Util::FindControl(this, UIKit::ID_CTRLPLACEHOLDER);
    if (!m_pControlPlaceholder)
        UIKit::ErrorSink::Report("dashboard.xml", 0, "no control with the id ID_CTRLPLACEHOLDER: no screen can be shown");
    return true;
}

bool DashboardFrame::ShowScreen(const TString<wchar_t>& name, UIKit::Animation animation, int, int)
{
    auto screens = UIKit::Singleton<UIKit::ScreenManager>::Instance();
    UIKit::ScreenCtrl* next = screens ? screens->Get(name) : nullptr;
    if (!next) {
        TK_LOG(Toolkit::LogError) << "no screen named " << name << " can be built";
        return false;
    }
    m_relabel.ApplyToScreen(next);
    UIKit::ScreenCtrl* previous = m_pCurrentRunningScreen;
    if (previous && previous != next)
        previous->ScreenSlideLeave();
    m_pCurrentRunningScreen = next;
    swapScreens(previous, next, animation);
    next->ScreenSlideEnter();
    selectNavigation(*next);
    return true;
}

void DashboardFrame::swapScreens(UIKit::ScreenCtrl* previous, UIKit::ScreenCtrl* next, UIKit::Animation animation)
{
    const wxPoint origin = next->GetPosition();
    if (previous && previous != next && animation != UIKit::AnimationNone) {
        next->Show(true);
        UIKit::Util::AnimatedSlide(previous, next, origin, next->GetSize(),
                                   static_cast<UIKit::Util::MotionType>(animation));
        previous->Move(origin);
    }
    if (previous && previous != next)
        previous->Show(false);
    next->Move(origin);
    next->Show(true);
    next->SetFocus();
}

// The screen's group names the navigation button to select; the others
// are released.
void DashboardFrame::selectNavigation(const UIKit::ScreenCtrl& screen)
{
    auto* descriptor = dynamic_cast<const UIKit::ScreenDescriptor*>(screen.GetDescriptor().get());
    const TString<wchar_t> group = descriptor ? descriptor->GetGroup() : TString<wchar_t>();
    for (wxWindow* child : GetChildren()) {
        auto* control = dynamic_cast<UIKit::Control*>(child);
        const bool selected = !group.empty() && child->GetName() == wxString(group);
        if (control && control != m_pControlPlaceholder && control->IsSelected() != selected)
            control->Select(selected);
    }
    if (descriptor)
        SetScreenTitle(descriptor->GetTitleLabel());
}

void DashboardFrame::onButton(wxCommandEvent& event)
{
    auto sequences = UIKit::Singleton<UIKit::SequenceManager>::Instance();
    if (!sequences || !sequences->DoEvent(event.GetId()))
        event.Skip();
}

void DashboardFrame::onCharHook(wxKeyEvent& event)
{
    const int code = event.GetKeyCode() + (event.ControlDown() ? WXK_CONTROL : 0) +
                     (event.ShiftDown() ? WXK_SHIFT : 0);
    auto hotkeys = UIKit::Singleton<UIKit::HotkeysManager>::Instance();
    TString<wchar_t> name;
    if (!hotkeys || !hotkeys->Find(code, name))
        event.Skip();
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
    m_relabel.Apply(this, UIKit::CtrlFactory::Instance()->CreateDescriptorFromPack(L"dashboard"));
    std::vector<TString<wchar_t>> itemFiles;
    if (auto plugins = UIKit::Singleton<UIKit::PluginManager>::Instance())
        for (const auto& [key, plugin] : plugins->GetPlugins())
            itemFiles.push_back(plugin->GetItemFile());
    m_relabel.ReadTemplates(itemFiles);
    if (m_pControlPlaceholder)
        for (wxWindow* screen : m_pControlPlaceholder->GetChildren())
            m_relabel.ApplyToScreen(dynamic_cast<UIKit::Control*>(screen));
    Refresh(true);
}

// Screens are shown and hidden by the states; nothing to prepare here.
void DashboardFrame::OnBeforeTransition() {}
void DashboardFrame::OnDeviceStateChanged() {}

} // namespace host
