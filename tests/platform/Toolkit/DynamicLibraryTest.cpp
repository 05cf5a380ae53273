#include "Toolkit/DynamicLibrary.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

using Toolkit::DynamicLibrary;

const std::string c_sample = std::string(UIKIT_LIB_DIR) + "/libdynlib_sample.so";

TEST(DynamicLibraryTest, LoadsALibraryAndFindsItsSymbol)
{
    DynamicLibrary library;
    ASSERT_TRUE(library.Load(c_sample));
    auto* answer = reinterpret_cast<int (*)()>(library.GetSymbol("DynLibSampleAnswer"));
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    EXPECT_EQ(library.GetSymbol(Toolkit::TString<wchar_t>(L"DynLibSampleAnswer")), reinterpret_cast<void*>(answer));

    // A detached handle outlives its loader object and is closed by its new owner.
    void* handle = library.Detach();
    EXPECT_FALSE(library.Unload());
    EXPECT_TRUE(DynamicLibrary::Unload(handle));
}

TEST(DynamicLibraryTest, FailuresAreLoggedWithTheLoadersMessage)
{
    testsupport::TempDir dir;
    const auto wide = [](const std::string& s) { return std::wstring(s.begin(), s.end()); };
    const std::wstring missing = wide(dir.Str() + "/libmissing.so");
    const std::wstring sample = wide(c_sample);
    const struct {
        const char* name;
        std::string path;
        const char* symbol; // looked up when the load succeeds
        std::wstring logged;
    } cases[] = {
        {"missing file", dir.Str() + "/libmissing.so", nullptr,
         L"cannot load library " + missing + L": " + missing +
             L": cannot open shared object file: No such file or directory"},
        {"missing symbol", c_sample, "GetPlugin",
         L"symbol GetPlugin not found in " + sample + L": " + sample + L": undefined symbol: GetPlugin"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        testsupport::LogCapture log;
        DynamicLibrary library;
        const bool loaded = library.Load(c.path);
        if (c.symbol) {
            ASSERT_TRUE(loaded);
            EXPECT_EQ(library.GetSymbol(c.symbol), nullptr);
        } else {
            EXPECT_FALSE(loaded);
        }
        ASSERT_EQ(log.Size(), 1u) << log.Dump();
        EXPECT_EQ(log.Entries()[0].severity, Toolkit::LogError);
        EXPECT_TRUE(log.Contains(c.logged)) << log.Dump();
    }

    testsupport::LogCapture log;
    DynamicLibrary empty;
    EXPECT_EQ(empty.GetSymbol("DynLibSampleAnswer"), nullptr);
    EXPECT_TRUE(log.Contains(L"cannot look up symbol DynLibSampleAnswer: no library loaded"));
}

} // namespace
