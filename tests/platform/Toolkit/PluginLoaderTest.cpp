#include "Toolkit/IPluginLoader.h"

#include "TestSupport.h"
#include "peers/SamplePlugin.h"

#include <dlfcn.h>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using Loader = Toolkit::IPluginLoader<SamplePlugin, SampleParameters>;

// Whether the library at that path is mapped, without loading it.
bool IsMapped(const fs::path& path)
{
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

class PluginLoaderTest : public testing::Test {
protected:
    PluginLoaderTest()
    {
        for (const char* peer : {"sample_one", "sample_two", "sample_refuses", "sample_empty", "dynlib_sample"})
            Link(std::string("lib") + peer + ".so", peer);
        Link("liba_dup.so", "sample_one");
        Link("libb_dup.so", "sample_one");
        m_dir.Write("libnotelf.so", "not a library\n");
    }
    void Link(const std::string& name, const std::string& peer) const
    {
        fs::create_symlink(fs::path(UIKIT_LIB_DIR) / ("lib" + peer + ".so"), m_dir.Path() / name);
    }
    Loader MakeLoader() { return Loader(L"GetSample", m_parameters, m_dir.Path().wstring()); }

    testsupport::TempDir m_dir;
    SampleParameters m_parameters{10};
};

TEST_F(PluginLoaderTest, LoadsTheFilteredLibrariesInFilterOrderAndLogsEachRejectedOne)
{
    const std::wstring reject = L"Not Found symbol SYMBOL[GetSample] PLUGIN[";
    const struct {
        const char* name;
        std::vector<Toolkit::TString<wchar_t>> filters;
        const wchar_t* pattern;
        std::vector<int> answers;
        std::vector<std::wstring> logged; // one entry each, nothing else
    } cases[] = {
        {"filter order, not file order", {L"two.so", L"one.so"}, L"", {12, 11}, {}},
        {"an entry matching several files or none adds nothing", {L"_dup.so", L"missing.so", L"one.so"}, L"", {11}, {}},
        {"bad libraries",
         {L"refuses.so", L"empty.so", L"dynlib_sample.so", L"notelf.so", L"two.so"},
         L"",
         {12},
         {reject + L"libsample_refuses.so]: the entry returned false",
          reject + L"libsample_empty.so]: the entry returned no plug-in",
          reject + L"libdynlib_sample.so]: " + m_dir.Path().wstring() + L"/libdynlib_sample.so: undefined symbol",
          L"cannot load library " + m_dir.Path().wstring() + L"/libnotelf.so"}},
        {"pattern without filters", {}, L"libsample_*.so", {11, 12}, {reject, reject}},
        {"neither", {}, L"", {}, {L"Neither the FilePattern neither the GipFilterList are set!"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        testsupport::LogCapture log;
        Loader loader = MakeLoader();
        loader.SetFilterList(c.filters);
        loader.SetFilePattern(c.pattern);
        EXPECT_EQ(loader.Load(), static_cast<int>(c.answers.size()));
        std::vector<int> answers;
        for (const auto& plugin : loader.GetPlugins())
            answers.push_back(plugin->Answer());
        EXPECT_EQ(answers, c.answers);
        EXPECT_EQ(log.Size(), c.logged.size()) << log.Dump();
        for (const auto& text : c.logged)
            EXPECT_TRUE(log.Contains(text)) << text << "\n" << log.Dump();
    }
    EXPECT_FALSE(IsMapped(m_dir.Path() / "libsample_refuses.so")) << "a rejected library is closed";
}

TEST_F(PluginLoaderTest, ALibraryStaysMappedWhileAnObjectOfItsCodeLives)
{
    const fs::path path = m_dir.Path() / "libsample_one.so";
    Toolkit::smart_ptr<SamplePlugin> plugin, other, kept;
    {
        Loader loader = MakeLoader();
        loader.SetFilterList({L"sample_one.so"});
        ASSERT_EQ(loader.Load(), 1);
        plugin = loader.GetPlugins().front();
        other = plugin->MakeAnother();
        kept = plugin->MakeAnother();
        EXPECT_TRUE(Toolkit::PluginAction::KeepLoaded(kept));
    }
    EXPECT_TRUE(IsMapped(path));
    other.reset(); // made by the library, but not registered to keep it
    plugin.reset();
    EXPECT_TRUE(IsMapped(path)) << "an object that keeps the library loaded is alive";
    EXPECT_EQ(kept->Answer(), 12);
    kept.reset();
    EXPECT_FALSE(IsMapped(path));
}

} // namespace
