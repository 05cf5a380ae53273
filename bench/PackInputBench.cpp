// Inputs from a downloaded pack that once took quadratic time, each at two
// sizes ten times apart: the larger must take about ten times as long, not
// a hundred.
//  - LanguageLine::Parse of one long line ending in a lone quote, and of a
//    text made of backslash-n escapes;
//  - loading a string table with keys that share one hash under the old
//    "5 * h + c" table hash, next to ordinary keys;
//  - opening a zip pack of many entries and reading a hundred of them.
#include "appearance/IPack.h"
#include "appearance/LanguageLine.h"
#include "appearance/StringTable.h"

#include <benchmark/benchmark.h>

#include <wx/wfstream.h>
#include <wx/zipstrm.h>

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

using namespace UIKit;
namespace fs = std::filesystem;

namespace {

void BM_LanguageLine_LongLineEndingInQuote(benchmark::State& state)
{
    const TString<wchar_t> line(L"LB_LONG " + std::wstring(size_t(state.range(0)), L'x') + L"\"");
    for (auto _ : state)
        benchmark::DoNotOptimize(LanguageLine::Parse(line));
}
BENCHMARK(BM_LanguageLine_LongLineEndingInQuote)->Arg(300000)->Arg(3000000)->Unit(benchmark::kMicrosecond);

void BM_LanguageLine_LineBreakEscapes(benchmark::State& state)
{
    std::wstring text;
    for (int64_t i = 0; i < state.range(0) / 2; ++i)
        text += L"\\n";
    const TString<wchar_t> line(L"K \"" + text + L"\"");
    for (auto _ : state)
        benchmark::DoNotOptimize(LanguageLine::Parse(line));
}
BENCHMARK(BM_LanguageLine_LineBreakEscapes)->Arg(160000)->Arg(1600000)->Unit(benchmark::kMicrosecond);

// Keys made of the blocks "Aa" and "FH", which add the same to a "5 * h + c"
// hash: every key of one length shares one hash value.
std::vector<TString<char>> collidingKeys(size_t count)
{
    std::vector<TString<char>> keys;
    for (size_t i = 0; i < count; ++i) {
        std::string key;
        for (int bit = 0; bit < 17; ++bit)
            key += (i >> bit) & 1 ? "FH" : "Aa";
        keys.emplace_back(key);
    }
    return keys;
}

// Ordinary keys of about the same length, for comparison.
std::vector<TString<char>> plainKeys(size_t count)
{
    std::vector<TString<char>> keys;
    for (size_t i = 0; i < count; ++i)
        keys.emplace_back("LB_KEY_NUMBER_" + std::to_string(i * 7919) + "_ABCDEFGHIJ");
    return keys;
}

// Fills a fresh table with the keys on every iteration.
template <std::vector<TString<char>> (*MakeKeys)(size_t)>
void BM_StringTable_Fill(benchmark::State& state)
{
    const auto keys = MakeKeys(size_t(state.range(0)));
    const TString<wchar_t> text(L"text");
    for (auto _ : state) {
        StringTable table;
        for (const auto& key : keys)
            table.Set(key, text);
        benchmark::DoNotOptimize(table.Get(keys.back()));
    }
}
BENCHMARK(BM_StringTable_Fill<collidingKeys>)->Name("BM_StringTable_CollidingKeys")->Arg(5000)->Arg(50000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StringTable_Fill<plainKeys>)->Name("BM_StringTable_PlainKeys")->Arg(5000)->Arg(50000)->Unit(benchmark::kMillisecond);

// A zip pack of count empty entries, written once per size.
fs::path zipWithEntries(int64_t count)
{
    const fs::path path = fs::temp_directory_path() /
                          ("uikit-bench-zip-" + std::to_string(getpid()) + "-" + std::to_string(count) + ".ar");
    wxFFileOutputStream file(path.string());
    wxZipOutputStream zip(file);
    for (int64_t i = 0; i < count; ++i)
        zip.PutNextEntry("graphics/e" + std::to_string(i) + ".png");
    zip.Close();
    return path;
}

void BM_ZipPack_ManyEntries(benchmark::State& state)
{
    const fs::path path = zipWithEntries(state.range(0));
    std::vector<unsigned char> bytes;
    for (auto _ : state) {
        const auto pack = IPack::Open(path.wstring());
        for (int i = 0; i < 100; ++i)
            benchmark::DoNotOptimize(pack->ReadEntry(L"graphics/e" + std::to_wstring(i) + L".png", bytes));
    }
    fs::remove(path);
}
BENCHMARK(BM_ZipPack_ManyEntries)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
