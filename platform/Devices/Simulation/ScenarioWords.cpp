#include "Devices/Simulation/ScenarioWords.h"

#include "Toolkit/TString.h"

#include <cstdlib>
#include <map>

namespace Devices::Simulation::ScenarioWords {

bool Tokenize(const std::string& line, std::vector<Token>& tokens)
{
    size_t i = 0;
    const size_t n = line.size();
    while (i < n) {
        while (i < n && (line[i] == ' ' || line[i] == '\t' || line[i] == '\r'))
            ++i;
        if (i >= n || line[i] == '#')
            return true;
        Token t;
        std::string* out = &t.value;
        bool quoted = false;
        for (; i < n; ++i) {
            const char c = line[i];
            if (quoted) {
                if (c == '\\' && i + 1 < n)
                    *out += line[++i];
                else if (c == '"')
                    quoted = false;
                else
                    *out += c;
            } else if (c == '"') {
                quoted = true;
            } else if (c == ' ' || c == '\t' || c == '\r' || c == '#') {
                break;
            } else if (c == '=' && out == &t.value && t.key.empty()) {
                t.key = t.value;
                t.value.clear();
            } else {
                *out += c;
            }
        }
        if (quoted)
            return false;
        tokens.push_back(std::move(t));
    }
    return true;
}

bool ParseNumber(const std::string& s, unsigned long max, unsigned int& out)
{
    if (s.empty() || s.size() > 10 || s.find_first_not_of("0123456789") != std::string::npos)
        return false;
    const unsigned long v = std::strtoul(s.c_str(), nullptr, 10);
    if (v > max)
        return false;
    out = unsigned(v);
    return true;
}

bool ParseDuration(const std::string& s, uint64_t& ms)
{
    const size_t unit = s.find_first_not_of("0123456789.");
    if (unit == 0 || unit == std::string::npos || s.size() > 16)
        return false;
    const std::string number = s.substr(0, unit), suffix = s.substr(unit);
    if (number.find('.') != number.rfind('.') || number.back() == '.')
        return false;
    const double v = std::strtod(number.c_str(), nullptr);
    static const std::map<std::string, double> scale{{"ms", 1}, {"s", 1000}, {"min", 60000}};
    const auto it = scale.find(suffix);
    if (it == scale.end())
        return false;
    ms = uint64_t(v * it->second);
    return true;
}

bool ParseInitStep(const std::string& s, InitializationStep& step)
{
    static const std::map<std::string, InitializationStep> names{
        {"opened", InitStepPortOpened},   {"identified", InitStepIdentified},
        {"sim", InitStepSimDetected},     {"unlocked", InitStepSimUnlocked},
        {"radio", InitStepRadioChecked},  {"features", InitStepFeaturesRead},
        {"completed", InitStepCompleted}, {"radio-off", InitStepRadioHardwareOff},
        {"sim-missing", InitStepSimMissing}, {"sim-failure", InitStepSimFailure}};
    const auto it = names.find(s);
    unsigned int n = 0;
    if (it != names.end())
        step = it->second;
    else if (ParseNumber(s, InitStepSimFailure, n))
        step = InitializationStep(n);
    else
        return false;
    return true;
}

bool ParseTech(const std::string& s, unsigned int& tech)
{
    static const std::map<std::string, unsigned int> names{
        {"gsm", AccessGsm},   {"gprs", AccessGprs},   {"edge", AccessEdge},       {"umts", AccessUmts},
        {"hsdpa", AccessHsdpa}, {"hspa", AccessHspa}, {"hspa+", AccessHspaPlus}, {"lte", AccessLte},
        {"5g", Access5gNr}};
    const auto it = names.find(s);
    if (it == names.end())
        return false;
    tech = it->second;
    return true;
}

bool ParseFeatures(const std::string& s, unsigned int& features)
{
    static const std::map<std::string, unsigned int> names{
        {"data", FeatureData}, {"sms", FeatureSms},         {"voice", FeatureVoice},
        {"ussd", FeatureUssd}, {"contacts", FeatureContacts}, {"location", FeatureLocation},
        {"none", FeatureNone}};
    features = 0;
    for (const auto& word : TString<char>(s).Split(",")) {
        const auto it = names.find(word);
        if (it == names.end())
            return false;
        features |= it->second;
    }
    return true;
}

bool ParseOnOff(const std::string& s, bool& on)
{
    if (s != "on" && s != "off")
        return false;
    on = s == "on";
    return true;
}

bool IsDigits(const std::string& s, size_t min, size_t max)
{
    return s.size() >= min && s.size() <= max && s.find_first_not_of("0123456789") == std::string::npos;
}

std::string Shown(const std::string& word)
{
    return word.find_first_not_of("0123456789") == std::string::npos ? std::string("(a number)") : word;
}

unsigned long long StableId(const std::string& key)
{
    unsigned long long h = 1469598103934665603ull; // FNV-1a
    for (const unsigned char c : key)
        h = (h ^ c) * 1099511628211ull;
    return h ? h : 1;
}

} // namespace Devices::Simulation::ScenarioWords
