// Reading and updating the preferences file at two sizes ten times apart
// (8,000 and 80,000 keys) in one run: both must take time linear in the
// size of the file, the larger about ten times the smaller.
//  - IniFileOpen: parse the file;
//  - PreferencesGet: one AppPreferences::Get, which reads the file;
//  - PreferencesSet: one AppPreferences::Set, which reads, changes one key
//    and writes the file back.
#include "Preferences/AppPreferences.h"
#include "Toolkit/IniFile.h"
#include "Toolkit/PathManager.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

// A configuration directory holding a preferences file of `keys` keys,
// spread over sections of 100 keys, as long as the benchmark runs.
class PreferencesFile {
public:
    explicit PreferencesFile(long keys)
    {
        std::string dir = (fs::temp_directory_path() / "prefs-bench-XXXXXX").string();
        m_dir = ::mkdtemp(dir.data());
        Toolkit::PathManager::Instance().SetConfigDir(m_dir.string());
        std::ofstream out(Path());
        for (long i = 0; i < keys; ++i) {
            if (i % 100 == 0)
                out << "[Section" << i / 100 << "]\n";
            out << "Key" << i << "=value of key " << i << '\n';
        }
    }
    ~PreferencesFile()
    {
        Toolkit::PathManager::Instance().SetConfigDir("");
        std::error_code ec;
        fs::remove_all(m_dir, ec);
    }
    std::string Path() const { return (m_dir / Preferences::AppPreferences::c_strFileName).string(); }

private:
    fs::path m_dir;
};

void BM_IniFileOpen(benchmark::State& state)
{
    PreferencesFile file(state.range(0));
    Toolkit::IniFile ini;
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.Open(TString<char>(file.Path())));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_PreferencesGet(benchmark::State& state)
{
    PreferencesFile file(state.range(0));
    auto store = Preferences::AppPreferences::Open("Section0");
    TString<wchar_t> value;
    for (auto _ : state)
        benchmark::DoNotOptimize(store->Get("Key0", value));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_PreferencesSet(benchmark::State& state)
{
    PreferencesFile file(state.range(0));
    auto store = Preferences::AppPreferences::Open("Section0");
    bool flip = false;
    for (auto _ : state)
        benchmark::DoNotOptimize(store->Set("Key0", flip = !flip));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(BM_IniFileOpen)->Arg(8000)->Arg(80000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreferencesGet)->Arg(8000)->Arg(80000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreferencesSet)->Arg(8000)->Arg(80000)->Unit(benchmark::kMillisecond);
