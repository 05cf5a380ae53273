// The settings area: the tree from the settings document and the plug-ins'
// items, walking its pages (Back, Home, rows that act or open a page), the
// stream-log hot key and its saved value, and the title's messages.
#include "../descriptors/DescriptorTestSupport.h"
#include "../frames/TestDashboard.h"
#include "TestSupport.h"

#include "ComCore/ITransport.h"
#include "Preferences/AppPreferences.h"
#include "app/LibraryControls.h"
#include "factory/ControlIds.h"
#include "factory/CtrlGenerator.h"
#include "lists/ListCtrl.h"
#include "navigation/HotkeysManager.h"
#include "navigation/ScreenManager.h"
#include "settings/MainSettingsController.h"
#include "settings/SettingPanel.h"
#include "settings/SettingRootScreen.h"

#include <wx/app.h>

#include <cstdlib>
#include <cstring>

using namespace UIKit;

namespace {

const char* const c_templates = R"(<Templates>
  <Control class="UIKit::SettingRootScreen" bounds="0,0,300,300"/>
  <Control class="UIKit::SettingPanel" bounds="0,0,300,300">
    <Control class="StaticTextCtrl" name="TitleLabel" bounds="0,0,300,20"><Label/></Control>
    <Control class="ListCtrl" name="List" bounds="0,20,300,200"/>
  </Control>
  <Control class="OtherPage" bounds="0,0,300,300"/>
  <Control class="UIKit::ListItemCtrl_" bounds="0,0,300,30"><Label/></Control>
</Templates>)";

// Three levels under A; "Missing" is registered by nobody.
const char* const c_settings = R"(<Settings label="Root">
  <Link label="A"><Link label="B"><Item object="Leaf"/></Link></Link>
  <Item object="Missing"/>
  <Item object="Plain"/>
  <Item object="Other" label="Other page"/>
  <Item object="Nowhere"/>
</Settings>)";

SettingItem::Ptr leaf(const wchar_t* label, const wchar_t* page)
{
    return SettingItem::Ptr(new SettingItem(label, SettingItem::c_strRowTemplate, page));
}

class SettingsTest : public descriptortest::FactoryFixture {
protected:
    void SetUp() override
    {
        FactoryFixture::SetUp();
        setenv("UIKIT_CONFIG_DIR", m_home.Str().c_str(), 1);
        m_resources.documents[L"settings"] = c_settings;
        for (const char* label : {"Root", "A", "B", "Other page"})
            m_resources.strings[label] = TString<wchar_t>(std::wstring(label, label + strlen(label)));
        Factory().SetResources(&m_resources);
        RegisterLibraryControls(Factory());
        Factory().AddGenerator(L"OtherPage", CtrlGenerator<PanelCtrlDescriptor, SettingPanel>::Make());
        TemplateManager::Instance()->Load(m_templates.Root(), Factory());
        for (auto create : {&ScreenManager::CreateInstance, &HotkeysManager::CreateInstance,
                            &MainSettingsController::CreateInstance})
            create();
        IDashboard::s_pCurrent = m_dashboard = new frametest::TestDashboard();
        m_controller = MainSettingsController::Instance();
        m_controller->LoadSettingItems({{L"Leaf", leaf(L"Leaf", SettingItem::c_strPageTemplate)},
                                        {L"Plain", leaf(L"Plain", SettingItem::c_strPageTemplate)},
                                        {L"Other", leaf(L"Other", L"OtherPage")},
                                        {L"Nowhere", leaf(L"Nowhere", L"NoSuchPage")}});
        m_controller->DisplaySettingPanel(AnimationNone);
        m_screen =
            dynamic_cast<SettingRootScreen*>(ScreenManager::Instance()->Get(MainSettingsController::c_strScreen));
        ASSERT_NE(m_screen, nullptr);
    }
    void TearDown() override
    {
        m_controller->UnloadSettingItemFromPlugins();
        m_controller = {};
        IDashboard::s_pCurrent = nullptr;
        m_dashboard->Destroy();
        for (auto release : {&MainSettingsController::ReleaseInstance, &HotkeysManager::ReleaseInstance,
                             &ScreenManager::ReleaseInstance})
            release();
        ComCore::ITransport::EnableStreamLogs(false);
        unsetenv("UIKIT_CONFIG_DIR");
        FactoryFixture::TearDown();
    }
    // Selects the row of the child at `index` on the page on show, as Enter
    // on the row does, and lets the posted moves happen.
    void SelectRow(unsigned int index)
    {
        ListItemCtrl* row = m_screen->GetTopPanel() ? m_screen->GetTopPanel()->RowOf(index) : nullptr;
        ASSERT_NE(row, nullptr) << "no row for child " << index;
        wxCommandEvent apply;
        row->OnApplyControl(apply);
        Settle();
    }
    void Press(int id)
    {
        wxCommandEvent click(wxEVT_BUTTON, id);
        m_screen->GetEventHandler()->ProcessEvent(click);
        Settle();
    }
    void Settle() { wxTheApp->ProcessPendingEvents(); }
    TString<wchar_t> TopPage() const
    {
        auto* top = m_screen->GetTopPanel();
        return top && top->GetRootSettingItem() ? top->GetRootSettingItem()->GetLabel() : L"(none)";
    }

    testsupport::TempDir m_home;
    descriptortest::FakeResources m_resources;
    descriptortest::Document m_templates{c_templates};
    frametest::TestDashboard* m_dashboard = nullptr;
    Toolkit::smart_ptr<MainSettingsController> m_controller;
    SettingRootScreen* m_screen = nullptr;
};

TEST_F(SettingsTest, TreeLeavesOutUnregisteredItemsAndBackAndHomeWalkThePages)
{
    std::vector<std::wstring> rows;
    for (const auto& item : m_controller->GetRootItem()->GetItems())
        rows.push_back(item->GetLabel());
    EXPECT_EQ(rows, (std::vector<std::wstring>{L"A", L"Plain", L"Other page", L"Nowhere"}));

    Press(ID_BACK);
    EXPECT_EQ(m_screen->GetPanels().size(), 1u) << "Back on the root page";

    SelectRow(0);
    SelectRow(0);
    ASSERT_EQ(m_screen->GetPanels().size(), 3u);
    EXPECT_EQ(TopPage(), L"B");
    Press(ID_BACKHOME);
    EXPECT_EQ(m_screen->GetPanels().size(), 1u) << "Home from the third level";
    EXPECT_EQ(TopPage(), L"Root");
    EXPECT_EQ(m_controller->GetCurrentItem(), m_controller->GetRootItem());
}

TEST_F(SettingsTest, LeavesOpenTheirOwnPageOnlyAndAMissingPageTemplateIsReportedOnce)
{
    const struct { unsigned int row; size_t pages; size_t reports; } cases[] = {
        {1, 1, 0}, // page template is the plain settings page: nothing to open
        {2, 2, 0}, // a page of its own
        {3, 1, 1}, // a page template nobody defines
    };
    for (const auto& c : cases) {
        m_controller->DisplaySettingPanel(AnimationNone);
        descriptortest::ErrorCapture errors;
        SelectRow(c.row);
        EXPECT_EQ(m_screen->GetPanels().size(), c.pages) << "row " << c.row;
        EXPECT_EQ(errors.Lines().size(), c.reports) << "row " << c.row;
    }
}

TEST_F(SettingsTest, StreamLogHotKeySwitchesSavesAndAnnouncesForThreeSeconds)
{
    testsupport::FakeClock clock;
    SettingRootScreen::SetStreamLogPreference("Diagnostics", "StreamLogs");
    HotkeysManager::Instance()->Add(L"101Settings", L"UICommonCtrls", L"ATCmdLogs", 'L' + WXK_CONTROL + WXK_SHIFT);
    ComCore::ITransport::EnableStreamLogs(false);
    auto keyUp = [&](int code, long modifiers) {
        wxCommandEvent up(ListCtrl::EVT_KEYUP, -1);
        up.SetInt(code);
        up.SetExtraLong(modifiers);
        m_screen->GetEventHandler()->ProcessEvent(up);
    };
    Control* title = m_screen->GetTitleControl();
    ASSERT_NE(title, nullptr);

    keyUp('L', WXK_CONTROL);
    EXPECT_FALSE(ComCore::ITransport::IsStreamLogsEnabled()) << "without Shift it is no hot key";
    for (bool expected : {true, false}) {
        keyUp('L', WXK_CONTROL + WXK_SHIFT);
        bool saved = !expected;
        EXPECT_EQ(ComCore::ITransport::IsStreamLogsEnabled(), expected);
        EXPECT_TRUE(Preferences::AppPreferences::Open("Diagnostics")->Get("StreamLogs", saved));
        EXPECT_EQ(saved, expected);
        EXPECT_EQ(title->GetControlLabel(), expected ? L"Stream Logs = ON" : L"Stream Logs = OFF");
        clock.Advance(2000);
    }
    clock.Advance(999);
    m_screen->OnTitleTimer();
    EXPECT_EQ(title->GetControlLabel(), L"Stream Logs = OFF") << "3 s count from the last message";
    clock.Advance(1);
    m_screen->OnTitleTimer();
    EXPECT_EQ(title->GetControlLabel(), L"Root");
}

} // namespace
