#include "settings/SettingRootScreen.h"

#include "ComCore/ITransport.h"
#include "Preferences/AppPreferences.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/TickCount.h"
#include "factory/ControlIds.h"
#include "factory/CtrlFactory.h"
#include "lists/ListCtrl.h"
#include "navigation/HotkeysManager.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingItemEvent.h"
#include "settings/SettingPanel.h"
#include "util/Util.h"

#include <algorithm>

namespace UIKit {
namespace {

TString<char> g_streamLogStore;
TString<char> g_streamLogKey;
SettingRootScreen::PageHook g_pageHook;

// How often the title timer looks at the clock.
constexpr int c_titlePollMs = 100;

const SettingItemEvent* settingEvent(const wxCommandEvent& event)
{
    return dynamic_cast<const SettingItemEvent*>(&event);
}

TString<wchar_t> onOff(const TString<wchar_t>& what, bool on)
{
    return what + (on ? L" = ON" : L" = OFF");
}

} // namespace

SettingRootScreen::SettingRootScreen(wxWindow* parent, int id, const wxRect& bounds)
    : ScreenCtrl(parent, id, bounds, false), m_titleTimer(this)
{
    Bind(wxEventTypeTag<wxCommandEvent>(PushSettingItemEvent::EVENT), &SettingRootScreen::onPush, this);
    Bind(wxEventTypeTag<wxCommandEvent>(PopSettingItemEvent::EVENT), &SettingRootScreen::onPop, this);
    Bind(wxEventTypeTag<wxCommandEvent>(PopToRootSettingItemEvent::EVENT), &SettingRootScreen::onPopToRoot, this);
    Bind(wxEventTypeTag<wxCommandEvent>(UpdateSettingItemEvent::EVENT), &SettingRootScreen::onUpdateItem, this);
    Bind(wxEventTypeTag<wxCommandEvent>(UpdateSettingPanelEvent::EVENT), &SettingRootScreen::onUpdatePanel, this);
    Bind(wxEventTypeTag<wxCommandEvent>(ListCtrl::EVT_KEYUP), &SettingRootScreen::onListKeyUp, this);
    // Bound handlers run before the screen's table, which would turn these
    // ids into navigation events.
    Bind(wxEVT_BUTTON, &SettingRootScreen::onBack, this, ID_BACK);
    Bind(wxEVT_BUTTON, &SettingRootScreen::onBackHome, this, ID_BACKHOME);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTitleTimer(); }, m_titleTimer.GetId());
    if (auto controller = MainSettingsController::Instance())
        controller->AttachScreen(this);
}

SettingRootScreen::~SettingRootScreen()
{
    m_titleTimer.Stop();
    if (auto controller = MainSettingsController::Instance())
        controller->DetachScreen(this);
}

void SettingRootScreen::SetPageHook(PageHook hook)
{
    g_pageHook = std::move(hook);
}

void SettingRootScreen::SetStreamLogPreference(const TString<char>& store, const TString<char>& key)
{
    g_streamLogStore = store;
    g_streamLogKey = key;
}

bool SettingRootScreen::ToggleStreamLogs()
{
    const bool on = !ComCore::ITransport::IsStreamLogsEnabled();
    ComCore::ITransport::EnableStreamLogs(on);
    if (g_streamLogStore.empty() || g_streamLogKey.empty())
        return on;
    if (auto preferences = Preferences::AppPreferences::Open(g_streamLogStore))
        preferences->Set(g_streamLogKey, on);
    return on;
}

void SettingRootScreen::RestoreStreamLogs()
{
    bool on = false;
    if (g_streamLogStore.empty() || g_streamLogKey.empty())
        return;
    if (auto preferences = Preferences::AppPreferences::Open(g_streamLogStore); preferences &&
        preferences->Get(g_streamLogKey, on))
        ComCore::ITransport::EnableStreamLogs(on);
}

SettingPanel* SettingRootScreen::GetTopPanel() const
{
    return m_panels.empty() ? nullptr : dynamic_cast<SettingPanel*>(m_panels.back());
}

Control* SettingRootScreen::GetTitleControl() const
{
    if (SettingPanel* top = GetTopPanel(); top && top->GetTitle())
        return top->GetTitle();
    return Util::RecursiveFindControl(const_cast<SettingRootScreen*>(this), L"TitleLabel");
}

void SettingRootScreen::onPush(wxCommandEvent& event)
{
    const auto* push = settingEvent(event);
    if (!push || !push->GetItem())
        return;
    auto factory = CtrlFactory::Instance();
    auto* page = factory ? factory->CreateControl<SettingPanel>(push->GetItem()->GetPageTemplate(), this, -1)
                         : nullptr;
    if (!page)
        return;
    page->Show(false);
    const wxSize size = GetClientSize();
    page->SetControlSize(0, 0, size.x, size.y);
    if (g_pageHook)
        g_pageHook(*page);
    page->SetRootSettingItem(push->GetItem());
    if (!m_panels.empty())
        m_panels.back()->Show(false);
    m_panels.push_back(page);
    showTop();
}

void SettingRootScreen::onPop(wxCommandEvent&)
{
    if (m_panels.size() < 2)
        return;
    removeTopPanel();
    showTop();
}

void SettingRootScreen::onPopToRoot(wxCommandEvent&)
{
    while (m_panels.size() > 1)
        removeTopPanel();
    showTop();
}

void SettingRootScreen::onUpdateItem(wxCommandEvent& event)
{
    const auto* update = dynamic_cast<const UpdateSettingItemEvent*>(&event);
    if (SettingPanel* top = GetTopPanel(); top && update)
        top->UpdateSettingItem(update->GetIndex(), update->GetItem());
}

void SettingRootScreen::onUpdatePanel(wxCommandEvent& event)
{
    const auto* update = settingEvent(event);
    if (!update || !update->GetItem())
        return;
    for (PanelCtrl* panel : m_panels)
        if (auto* page = dynamic_cast<SettingPanel*>(panel); page && page->GetRootSettingItem() == update->GetItem())
            page->Populate();
}

void SettingRootScreen::ResetPanels()
{
    restoreTitle();
    while (!m_panels.empty())
        removeTopPanel();
}

void SettingRootScreen::removeTopPanel()
{
    PanelCtrl* top = m_panels.back();
    m_panels.pop_back();
    if (m_messageTitle && top->IsDescendant(m_messageTitle))
        m_messageTitle = nullptr;
    top->Destroy();
}

void SettingRootScreen::showTop()
{
    if (SettingPanel* top = GetTopPanel()) {
        top->Show(true);
        if (top->GetList())
            top->GetList()->SetFocus();
    }
}

void SettingRootScreen::ScreenSlideEnter()
{
    ScreenCtrl::ScreenSlideEnter();
    if (SettingPanel* top = GetTopPanel(); top && top->GetList())
        top->GetList()->SetFocus();
}

void SettingRootScreen::OnEsc(wxCommandEvent&)
{
    if (auto controller = MainSettingsController::Instance())
        controller->BackToPreviousSettingItem();
}

void SettingRootScreen::onBack(wxCommandEvent&)
{
    if (auto controller = MainSettingsController::Instance())
        controller->BackToPreviousSettingItem();
}

void SettingRootScreen::onBackHome(wxCommandEvent&)
{
    if (auto controller = MainSettingsController::Instance())
        controller->BackToRootSettingItem();
}

void SettingRootScreen::onListKeyUp(wxCommandEvent& event)
{
    const int key = event.GetInt() + int(event.GetExtraLong());
    auto hotkeys = HotkeysManager::Instance();
    if (!hotkeys)
        return;
    if (hotkeys->IsHotkey(key, L"UICommonCtrls", L"ATCmdLogs")) {
        showTitleMessage(onOff(MethodToString(L"StreamLogs"), ToggleStreamLogs()));
        // A row of the page may show the switch.
        if (auto controller = MainSettingsController::Instance())
            controller->UpdateCurrentSettingPanel();
        return;
    }
    // Find fires the plug-ins bound to the key; the title names what fired.
    TString<wchar_t> name;
    hotkeys->Find(key, name);
    if (name.empty())
        return;
    if (name == L"STKTestWithoutChecking") {
        m_stkTest = !m_stkTest;
        showTitleMessage(onOff(MethodToString(name), m_stkTest));
    } else {
        showTitleMessage(MethodToString(name));
    }
}

TString<wchar_t> SettingRootScreen::MethodToString(const TString<wchar_t>& name)
{
    static const std::pair<const wchar_t*, const wchar_t*> c_names[] = {
        {L"UnlockCode", L"Unlock Device"},
        {L"StreamLogs", L"Stream Logs"},
        {L"TestModeWithChecking", L"Test Mode With Checking"},
        {L"ProductionMode", L"Production Mode"},
        {L"TestModeWithoutChecking", L"Test Mode Without Checking"},
        {L"STKTestWithoutChecking", L"STK Test Without Checking"},
    };
    for (const auto& [key, shown] : c_names)
        if (name == key)
            return shown;
    return name;
}

void SettingRootScreen::showTitleMessage(const TString<wchar_t>& text)
{
    Control* title = GetTitleControl();
    if (!title)
        return;
    if (m_messageTitle != title) {
        restoreTitle();
        m_savedTitle = title->GetControlLabel();
        m_messageTitle = title;
    }
    title->SetControlLabel(text);
    m_titleDeadline = Toolkit::GetTickCount() + c_titleMessageMs;
    if (!m_titleTimer.IsRunning())
        m_titleTimer.Start(c_titlePollMs);
}

void SettingRootScreen::OnTitleTimer()
{
    if (m_messageTitle && Toolkit::GetTickCount() < m_titleDeadline)
        return;
    restoreTitle();
}

void SettingRootScreen::restoreTitle()
{
    m_titleTimer.Stop();
    if (m_messageTitle)
        m_messageTitle->SetControlLabel(m_savedTitle);
    m_messageTitle = nullptr;
}

} // namespace UIKit
