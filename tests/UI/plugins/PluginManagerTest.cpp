#include "../appearance/AppearanceTestSupport.h"

#include "TestSupport.h"
#include "appearance/ConfDataFile.h"
#include "descriptors/PanelCtrlDescriptor.h"
#include "factory/CtrlGenerator.h"
#include "plugins/PluginItemTables.h"
#include "plugins/PluginManager.h"
#include "xml/XMLLoader.h"

#include <gtest/gtest.h>

using namespace UIKit;
namespace fs = std::filesystem;

namespace {

// Records which section (its "of" attribute) reaches which table, walks the
// event rows as the event table does, and passes templates on.
class RecordingTables : public PluginItemTables {
public:
    void LoadTemplates(Toolkit::smart_ptr<XMLNode> node) override
    {
        calls.push_back(L"Templates " + XMLLoader(node).ReadString("", "of"));
        PluginItemTables::LoadTemplates(node);
    }
    void LoadEvents(Toolkit::smart_ptr<XMLNode> node) override
    {
        calls.push_back(L"Events " + XMLLoader(node).ReadString("", "of"));
        std::vector<Toolkit::smart_ptr<XMLNode>> rows;
        XMLLoader(node).GetNodes(rows, "");
    }
    void LoadShortcuts(Toolkit::smart_ptr<XMLNode> node, const TString<wchar_t>& key) override
    {
        calls.push_back(L"Shortcuts " + XMLLoader(node).ReadString("", "of") + L" " + key);
    }
    std::vector<std::wstring> calls;
};

class PluginManagerTest : public testing::Test {
protected:
    PluginManagerTest()
        : m_plugins("UIKIT_PLUGINS_DIR", m_dir.Str()),
          m_appearances("UIKIT_APPEARANCES_DIR", appearancetest::TestPackDir().parent_path().string()),
          m_config("UIKIT_CONFIG_DIR", (m_dir.Path() / "config").string())
    {
        for (const auto& [link, built] :
             std::vector<std::pair<std::string, std::string>>{{"alpha_again", "tp_alpha"},
                                                              {"a_dup", "tp_beta"},
                                                              {"b_dup", "tp_beta"},
                                                              {"tp_alpha", "tp_alpha"},
                                                              {"tp_beta", "tp_beta"},
                                                              {"tp_inactive", "tp_inactive"},
                                                              {"tp_missing", "tp_missing"},
                                                              {"tp_malformed", "tp_malformed"},
                                                              {"tp_generator", "tp_generator"},
                                                              {"dynlib_sample", "dynlib_sample"}})
            fs::create_symlink(fs::path(UIKIT_LIB_DIR) / ("lib" + built + ".so"),
                               m_dir.Path() / ("lib" + link + ".so"));
        m_dir.Write("libnotelf.so", "not a library\n");
        Appearance::CreateInstance();
        EXPECT_TRUE(Appearance::Instance()->Init(L"testskin", L"en"));
        m_previousTables = PluginItemTables::Install(&m_tables);
    }
    ~PluginManagerTest() override
    {
        PluginItemTables::Install(m_previousTables);
        Release();
        Appearance::ReleaseInstance();
    }
    static void Release()
    {
        for (auto release : {PluginManager::ReleaseInstance, TemplateManager::ReleaseInstance,
                             CtrlFactory::ReleaseInstance, ConfDataFile::ReleaseInstance})
            release();
    }
    // Fresh managers, a configuration naming these filters, and a load.
    void LoadWith(const std::string& filters)
    {
        Release();
        for (auto create : {ConfDataFile::CreateInstance, CtrlFactory::CreateInstance,
                            TemplateManager::CreateInstance, PluginManager::CreateInstance})
            create();
        for (const wchar_t* screen : {L"AlphaScreen", L"BetaScreen"})
            CtrlFactory::Instance()->AddGenerator(screen, DescriptorGenerator<PanelCtrlDescriptor>::Make());
        const auto ini =
            m_dir.Write("bundles.ini", "[MainBundle]\nEntry=Core\n[Bundle.Core]\nGipDep=" + filters + "\n");
        ConfDataFile::Instance()->LoadFromFile(ini.wstring());
        m_tables.calls.clear();
        PluginManager::Instance()->Load();
    }

    testsupport::TempDir m_dir;
    testsupport::ScopedEnv m_plugins;
    testsupport::ScopedEnv m_appearances;
    testsupport::ScopedEnv m_config;
    RecordingTables m_tables;
    PluginItemTables* m_previousTables = nullptr;
};

TEST_F(PluginManagerTest, PluginsAreKeyedAndUnloadedInAcceptanceOrderAndBadOnesAreReportedOnce)
{
    const std::wstring dir = m_dir.Path().wstring();
    const struct {
        const char* filters;
        std::vector<std::wstring> keys;
        std::vector<std::wstring> itemCalls; // checked when given
        std::vector<std::wstring> logged;    // once each
        std::vector<std::string> reported;   // through the error sink, exactly these
    } cases[] = {
        // Keyed in acceptance order; a refused plug-in and an ambiguous entry take no number.
        {"tp_beta.so,tp_inactive.so,_dup.so,tp_alpha.so", {L"101Beta", L"102Alpha"},
         {L"Templates Beta", L"Templates Beta2", L"Events Beta", L"Templates Alpha", L"Events Alpha",
          L"Shortcuts Alpha 102Alpha"},
         {L"The library 'plugin_inactive' is not a GraphicalInterfacePlugin!", L"deactivated plugin_inactive"},
         {}},
        {"tp_alpha.so,alpha_again.so", {L"101Alpha", L"102Alpha"}, {}, {}, {}},
        {"notelf.so,dynlib_sample.so,tp_missing.so,tp_malformed.so,tp_beta.so", {L"101Malformed", L"102Beta"}, {},
         {L"cannot load library " + dir + L"/libnotelf.so: " + dir + L"/libnotelf.so",
          L"Not Found symbol SYMBOL[GetPlugin] PLUGIN[libdynlib_sample.so]: " + dir +
              L"/libdynlib_sample.so: undefined symbol: GetPlugin",
          L"This library is a GraphicalInterfacePlugin but have'nt a valid interface descriptor! "
          L"ITEMFILE[plugin_missing]"},
         {"plugin_missing.xml: the description cannot be read from the appearance pack",
          "plugin_malformed.xml:6: malformed XML: <Event> opened on line 5 is not closed"}},
        {"", {}, {}, {L"Graphical Interface Plugin filter list is empty! => plugins loading will abort..."}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.filters);
        testsupport::LogCapture log;
        appearancetest::ErrorCapture errors;
        LoadWith(c.filters);
        auto manager = PluginManager::Instance();
        std::vector<std::wstring> keys, deactivated;
        for (const auto& entry : manager->GetPlugins())
            keys.push_back(entry.first);
        EXPECT_EQ(keys, c.keys);
        if (!c.itemCalls.empty()) {
            EXPECT_EQ(m_tables.calls, c.itemCalls);
        }
        for (const auto& text : c.logged)
            EXPECT_EQ(log.Count(text), 1u) << text << "\n" << log.Dump();
        EXPECT_EQ(errors.Lines(), c.reported);
        log.Clear();
        manager->Unload();
        for (const auto& key : keys)
            deactivated.push_back(L"deactivated " + manager->GetPlugins().at(key)->GetName());
        for (size_t i = 0; i < deactivated.size(); ++i)
            EXPECT_NE(log.Entries().at(i).message.find(deactivated[i]), std::wstring::npos) << log.Dump();
    }
    LoadWith("tp_beta.so,tp_alpha.so");
    auto manager = PluginManager::Instance();
    EXPECT_TRUE(TemplateManager::Instance()->Get(L"AlphaScreen")) << "templates reach the registry";
    manager->Unload();
    EXPECT_TRUE(manager->CallHotkey(L"102Alpha", L"Go")) << "still registered after Unload";
    EXPECT_FALSE(manager->CallHotkey(L"Alpha", L"Go"));
}

TEST_F(PluginManagerTest, AnUnloadedPluginStaysMappedWhileAGeneratorOfItsCodeIsHeld)
{
    const fs::path path = m_dir.Path() / "libtp_generator.so";
    LoadWith("tp_generator.so");
    ASSERT_EQ(PluginManager::Instance()->GetPlugins().size(), 1u);
    PluginManager::Instance()->Unload();
    PluginManager::ReleaseInstance();
    EXPECT_TRUE(testsupport::IsMapped(path)) << "the factory still holds the plug-in's generator";
    CtrlFactory::ReleaseInstance();
    EXPECT_FALSE(testsupport::IsMapped(path));
}

} // namespace
