#pragma once
#include "module/Export.h"
// The settings screen: a stack of pages, one per level of the settings tree
// walked so far, the top one shown. The settings controller drives it with
// events; Back and Home buttons and Escape walk back up. Hidden developer
// hot keys switch stream logging of the communication layer (saved in the
// preferences) and announce test modes in the page title for three seconds.
#include "navigation/ScreenCtrl.h"
#include "settings/SettingItem.h"

#include <wx/timer.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace UIKit {

class SettingPanel;

class UIKIT_API SettingRootScreen : public ScreenCtrl {
public:
    static constexpr uint64_t c_titleMessageMs = 3000;

    SettingRootScreen(wxWindow* parent, int id, const wxRect& bounds);
    ~SettingRootScreen() override;

    // Where the stream-log switch is saved: a preferences store and a key,
    // chosen by the host. Without them the switch is applied but not saved.
    static void SetStreamLogPreference(const TString<char>& store, const TString<char>& key);
    // Flips stream logging, saves the new value and returns it.
    static bool ToggleStreamLogs();
    // Applies the saved switch, when there is one.
    static void RestoreStreamLogs();

    // Called with every page once it is built, before it is filled: the
    // host relabels pages built from templates read in another language.
    using PageHook = std::function<void(SettingPanel& page)>;
    static void SetPageHook(PageHook hook);

    // Removes every page.
    void ResetPanels();
    void ScreenSlideEnter() override;
    void OnEsc(wxCommandEvent& event) override;

    const std::vector<PanelCtrl*>& GetPanels() const { return m_panels; }
    SettingPanel* GetTopPanel() const;
    // The title of the top page (the first "TitleLabel" found without pages).
    Control* GetTitleControl() const;
    bool IsStkTestOn() const { return m_stkTest; }
    // Puts the saved title back once the message has been shown long enough
    // on the injectable clock; the title timer calls it.
    void OnTitleTimer();
    // What a hot-key name is shown as in the title.
    static TString<wchar_t> MethodToString(const TString<wchar_t>& name);

private:
    void onPush(wxCommandEvent& event);
    void onPop(wxCommandEvent& event);
    void onPopToRoot(wxCommandEvent& event);
    void onUpdateItem(wxCommandEvent& event);
    void onUpdatePanel(wxCommandEvent& event);
    void onBack(wxCommandEvent& event);
    void onBackHome(wxCommandEvent& event);
    void onListKeyUp(wxCommandEvent& event);
    // Shows the text in the title for the message time, keeping the title.
    void showTitleMessage(const TString<wchar_t>& text);
    void restoreTitle();
    void removeTopPanel();
    void showTop();

    std::vector<PanelCtrl*> m_panels;
    TString<wchar_t> m_savedTitle;
    Control* m_messageTitle = nullptr; // the title showing a message, or null
    uint64_t m_titleDeadline = 0;
    wxTimer m_titleTimer;
    bool m_stkTest = false;
};

} // namespace UIKit
