#include "TestSupport.h"
#include "appearance/ConfDataFile.h"

#include <gtest/gtest.h>

using Names = std::vector<TString<wchar_t>>;

namespace {

const std::string c_bundles = "[Bundle.Core]\nGipDep=Dashboard,Settings\n" "[Bundle.Sms]\nGipDep=SmsEditor\n"
                              "[Bundle.Contacts]\nGipDep=Contacts, Settings\n" "[Bundle.Lite]\nGipDep=LiteDash\n";

} // namespace

TEST(ConfDataFileTest, FilterListFollowsTheMainBundleAndItsPlugs)
{
    struct Case { const char* name; std::string ini; std::wstring selector; Names expected; };
    const Case cases[] = {
        {"entry then plugs, duplicates kept", "[MainBundle]\nEntry=Core\nPlugs=Sms,Contacts\n" + c_bundles, L"",
         {L"Dashboard", L"Settings", L"SmsEditor", L"Contacts", L"Settings"}},
        {"selector with its own section", "[MainBundle]\nEntry=Core\n[MainBundle.Lite]\nEntry=Lite\n" + c_bundles,
         L"Lite", {L"LiteDash"}},
        {"selector without a section falls back", "[MainBundle]\nEntry=Core\n" + c_bundles, L"Pro",
         {L"Dashboard", L"Settings"}},
        {"empty names are skipped", "[MainBundle]\nPlugs=,Sms,,Core,\n" + c_bundles, L"",
         {L"SmsEditor", L"Dashboard", L"Settings"}},
        {"a plug without a bundle section adds nothing", "[MainBundle]\nEntry=Core\nPlugs=Ghost\n" + c_bundles,
         L"", {L"Dashboard", L"Settings"}},
        {"no main section", c_bundles, L"", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        testsupport::TempDir dir;
        const auto path = dir.Write("bundles.ini", c.ini);
        UIKit::ConfDataFile conf;
        conf.LoadFromFile(path.wstring());
        conf.SetBundleSelector(c.selector);
        EXPECT_EQ(conf.GetGipFilterList(), c.expected);
    }
}

TEST(ConfDataFileTest, ReadsLazilyAndKeepsTheFirstNonEmptyAnswer)
{
    testsupport::TempDir dir;
    const auto path = dir.Path() / "bundles.ini";
    UIKit::ConfDataFile conf;
    conf.LoadFromFile(path.wstring());
    EXPECT_TRUE(conf.GetGipFilterList(L"Lite").empty()) << "no file yet";

    dir.Write("bundles.ini", "[MainBundle]\nEntry=Core\n[MainBundle.Lite]\nEntry=Lite\n" + c_bundles);
    EXPECT_EQ(conf.GetGipFilterList(L"Lite"), (Names{L"LiteDash"})) << "an empty answer is looked up again";
    EXPECT_EQ(conf.GetGipFilterList(L""), (Names{L"LiteDash"})) << "then kept whatever bundle is named";
    dir.Write("bundles.ini", "[MainBundle]\nEntry=Sms\n" + c_bundles);
    EXPECT_EQ(conf.GetGipFilterList(), (Names{L"LiteDash"}));
}
