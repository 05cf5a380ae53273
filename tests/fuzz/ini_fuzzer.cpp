// libFuzzer target for the INI reader that preferences and the
// configuration file go through. Each input is read with the default limits
// and with small ones (so that every limit is reached), then written out
// and read back: what was read must survive the round trip unchanged.
#include "Toolkit/ILogger.h"
#include "Toolkit/IniFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void requireSame(const std::string& a, const std::string& b)
{
    if (a != b)
        std::abort();
}

// Reads every key through the lookup paths, as the preferences store does.
void readAll(const Toolkit::IniFile& ini)
{
    for (const auto& section : ini.GetSectionNames()) {
        if (!ini.HasSection(section) && !section.empty())
            std::abort();
        for (const auto& key : ini.GetKeyNames(section.ToUpper())) {
            TString<wchar_t> value;
            if (!ini.Get(section, key.ToLower(), value))
                std::abort();
            (void)ini.GetInt(section, key, 0);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Toolkit::ILogger::Instance().SetStderrEnabled(false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Toolkit::IniFile ini;
    ini.SetPath("fuzz.ini");
    ini.Load(text);
    readAll(ini);
    const std::string written = ini.ToText();
    Toolkit::IniFile back;
    back.Load(written);
    if (!back.GetMalformedLines().empty())
        std::abort();
    requireSame(back.ToText(), written);

    Toolkit::IniFile::Limits small;
    small.fileBytes = 256;
    small.lineBytes = 32;
    small.keys = 8;
    Toolkit::IniFile limited;
    limited.SetLimits(small);
    limited.Load(text);
    readAll(limited);
    limited.Set(L"Fuzz", L"key", L"value");
    limited.RemoveKey(L"Fuzz", L"key");
    limited.RemoveSection(L"");
    (void)limited.ToText();
    return 0;
}
