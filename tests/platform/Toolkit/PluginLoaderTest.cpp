#include "Toolkit/IPluginLoader.h"

#include "TestSupport.h"
#include "peers/SamplePlugin.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Filter order, ambiguous entries and files that are no plug-in (with the
// loader's messages for them) are the plug-in manager tests' part; here the
// entry's answers and the library's lifetime, which is the dynamic library's
// loading, lookup, hand-over (Detach) and unloading.
TEST(PluginLoaderTest, EntryAnswersAreCheckedAndALibraryStaysMappedWhileAnObjectOfItsCodeLives)
{
    testsupport::TempDir dir;
    for (const std::string peer : {"libsample_one.so", "libsample_refuses.so", "libsample_empty.so"})
        fs::create_symlink(fs::path(UIKIT_LIB_DIR) / peer, dir.Path() / peer);
    SampleParameters parameters{10};
    Toolkit::smart_ptr<SamplePlugin> plugin, other, kept;
    {
        Toolkit::IPluginLoader<SamplePlugin, SampleParameters> loader(L"GetSample", parameters, dir.Path().wstring());
        loader.SetFilePattern(L"lib*.so");
        testsupport::LogCapture log;
        ASSERT_EQ(loader.Load(), 1);
        EXPECT_EQ(log.Size(), 2u) << log.Dump();
        EXPECT_TRUE(
            log.Contains(L"Not Found symbol SYMBOL[GetSample] PLUGIN[libsample_refuses.so]: the entry returned false"));
        EXPECT_TRUE(log.Contains(L"PLUGIN[libsample_empty.so]: the entry returned no plug-in"));
        EXPECT_FALSE(testsupport::IsMapped(dir.Path() / "libsample_refuses.so")) << "a rejected library is closed";
        plugin = loader.GetPlugins().front();
        EXPECT_EQ(plugin->Answer(), 11) << "the entry is given the parameters";
        other = plugin->MakeAnother();
        kept = plugin->MakeAnother();
        EXPECT_TRUE(Toolkit::PluginAction::KeepLoaded(kept));
    }
    const fs::path path = dir.Path() / "libsample_one.so";
    other.reset(); // made by the library's code, but not kept
    plugin.reset();
    EXPECT_TRUE(testsupport::IsMapped(path)) << "an object that keeps the library loaded is alive";
    EXPECT_EQ(kept->Answer(), 12);
    kept.reset();
    EXPECT_FALSE(testsupport::IsMapped(path));
}

} // namespace
