#include "Devices/Simulation/ScenarioParser.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace Devices::Simulation {
namespace {

// Scenario files are small; anything larger is not one.
constexpr std::streamoff c_maxFileSize = 1 << 20;

struct Token {
    std::string key;   // empty for a positional word
    std::string value;
};

// Words separated by blanks; key=value pairs; "quoted text" in which a
// backslash keeps the next character as it is; # starts a comment outside
// quotes. False on an open quote.
bool tokenize(const std::string& line, std::vector<Token>& tokens)
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

bool parseNumber(const std::string& s, unsigned long max, unsigned int& out)
{
    if (s.empty() || s.size() > 10 || s.find_first_not_of("0123456789") != std::string::npos)
        return false;
    const unsigned long v = std::strtoul(s.c_str(), nullptr, 10);
    if (v > max)
        return false;
    out = unsigned(v);
    return true;
}

// "500ms", "2s", "1.5s", "1min".
bool parseDuration(const std::string& s, uint64_t& ms)
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

bool parseInitStep(const std::string& s, InitializationStep& step)
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
    else if (parseNumber(s, InitStepSimFailure, n))
        step = InitializationStep(n);
    else
        return false;
    return true;
}

bool parseTech(const std::string& s, unsigned int& tech)
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

bool parseFeatures(const std::string& s, unsigned int& features)
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

bool parseOnOff(const std::string& s, bool& on)
{
    if (s != "on" && s != "off")
        return false;
    on = s == "on";
    return true;
}

bool isDigits(const std::string& s, size_t min, size_t max)
{
    return s.size() >= min && s.size() <= max && s.find_first_not_of("0123456789") == std::string::npos;
}

// A word of the file as it may appear in a cause: numbers are left out,
// since a misplaced SIM code would otherwise reach the log.
std::string shown(const std::string& word)
{
    return word.find_first_not_of("0123456789") == std::string::npos ? std::string("(a number)") : word;
}

unsigned long long stableId(const std::string& key)
{
    unsigned long long h = 1469598103934665603ull; // FNV-1a
    for (const unsigned char c : key)
        h = (h ^ c) * 1099511628211ull;
    return h ? h : 1;
}

// The arguments of one line: positional words in order, options by key.
// Every option must be used by the action; the first one left over is the
// line's error.
class Arguments {
public:
    explicit Arguments(const std::vector<Token>& tokens)
    {
        for (const auto& t : tokens)
            if (t.key.empty())
                m_words.push_back(t.value);
            else
                m_options[t.key] = t.value;
    }
    const std::vector<std::string>& Words() const { return m_words; }
    bool Take(const std::string& key, std::string& value)
    {
        const auto it = m_options.find(key);
        if (it == m_options.end())
            return false;
        value = it->second;
        m_options.erase(it);
        return true;
    }
    std::string Leftover() const { return m_options.empty() ? std::string() : m_options.begin()->first; }

private:
    std::vector<std::string> m_words;
    std::map<std::string, std::string> m_options;
};

using Cause = std::string;

// One word, checked by the given reader; the cause names what was expected.
template <class F>
Cause oneWord(Arguments& a, const char* expected, F read)
{
    if (a.Words().size() != 1 || !read(a.Words()[0]))
        return std::string("expected ") + expected;
    return {};
}

Cause giveUp(Arguments& a, ScenarioStep& s)
{
    std::string v;
    if (!a.Words().empty())
        return "expected only giveup=DURATION";
    if (a.Take("giveup", v) && !parseDuration(v, s.duration))
        return "giveup expects a duration such as 500ms or 2s";
    return {};
}

Cause readRegister(Arguments& a, ScenarioStep& s)
{
    std::string v;
    if (!a.Take("operator", v) || v.empty())
        return "register expects operator=NAME";
    s.text = Toolkit::UTF8::ToUNICODE(v);
    s.number = AccessUmts;
    if (a.Take("tech", v) && !parseTech(v, s.number))
        return "tech expects gsm, gprs, edge, umts, hsdpa, hspa, hspa+, lte or 5g";
    s.number2 = 60;
    if (a.Take("signal", v) && !parseNumber(v, 100, s.number2))
        return "signal expects a percentage from 0 to 100";
    for (const auto& w : a.Words()) {
        if (w != "roaming")
            return "register takes only the word roaming besides its options";
        s.flag = true;
    }
    return {};
}

Cause readTraffic(Arguments& a, ScenarioStep& s)
{
    std::string up, down;
    if (!a.Words().empty() || !a.Take("up", up) || !a.Take("down", down) ||
        !parseNumber(up, 1ul << 30, s.number) || !parseNumber(down, 1ul << 30, s.number2))
        return "traffic expects up=BYTES down=BYTES (per second)";
    return {};
}

using StepReader = std::function<Cause(Arguments&, ScenarioStep&)>;

Cause noArguments(Arguments& a, ScenarioStep&)
{
    return a.Words().empty() ? Cause() : Cause("expected no arguments");
}

const std::map<std::string, std::pair<StepKind, StepReader>>& stepReaders()
{
    static const std::map<std::string, std::pair<StepKind, StepReader>> readers{
        {"plug", {StepKind::Plug, noArguments}},
        {"pull", {StepKind::Pull, noArguments}},
        {"connect", {StepKind::Connect, noArguments}},
        {"disconnect", {StepKind::Disconnect, noArguments}},
        {"unlock", {StepKind::Unlock, giveUp}},
        {"flightmode", {StepKind::FlightMode, giveUp}},
        {"register", {StepKind::Register, readRegister}},
        {"traffic", {StepKind::Traffic, readTraffic}},
        {"wait", {StepKind::Wait, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "a duration such as 500ms or 2s", [&](const std::string& w) { return parseDuration(w, s.duration); });
         }}},
        {"init", {StepKind::Init, [](Arguments& a, ScenarioStep& s) {
             for (const auto& w : a.Words()) {
                 InitializationStep step;
                 if (!parseInitStep(w, step))
                     return Cause("init expects step names (opened, identified, sim, unlocked, radio, features, completed) or numbers 0 to 9");
                 s.initSteps.push_back(step);
             }
             return s.initSteps.empty() ? Cause("init expects at least one step") : Cause();
         }}},
        {"simerror", {StepKind::SimError, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "missing or failure", [&](const std::string& w) {
                 s.initSteps = {w == "missing" ? InitStepSimMissing : InitStepSimFailure};
                 return w == "missing" || w == "failure";
             });
         }}},
        {"signal", {StepKind::Signal, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "a percentage from 0 to 100", [&](const std::string& w) { return parseNumber(w, 100, s.number); });
         }}},
        {"operator", {StepKind::Operator, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "an operator name", [&](const std::string& w) {
                 s.text = Toolkit::UTF8::ToUNICODE(w);
                 return !w.empty();
             });
         }}},
        {"roaming", {StepKind::Roaming, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "on or off", [&](const std::string& w) { return parseOnOff(w, s.flag); });
         }}},
        {"tech", {StepKind::Tech, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "gsm, gprs, edge, umts, hsdpa, hspa, hspa+, lte or 5g", [&](const std::string& w) { return parseTech(w, s.number); });
         }}},
        {"features", {StepKind::Features, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "features such as data,sms", [&](const std::string& w) { return parseFeatures(w, s.number); });
         }}},
        {"error", {StepKind::Error, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "a message in quotes", [&](const std::string& w) {
                 s.text = Toolkit::UTF8::ToUNICODE(w);
                 return true;
             });
         }}},
    };
    return readers;
}

Cause readAttempts(Arguments& a, const char* key, unsigned int& attempts, bool& known)
{
    std::string v;
    if (!a.Take(key, v))
        return {};
    if (v == "unknown") {
        known = false;
        return {};
    }
    if (!parseNumber(v, 99, attempts) || attempts == 0)
        return std::string(key) + " expects a number from 1 to 99 or unknown";
    return {};
}

Cause readModem(Arguments& a, ModemScript& m)
{
    std::string v;
    if (!a.Words().empty())
        return "modem takes only key=value options";
    if (a.Take("name", v))
        m.info.name = Toolkit::UTF8::ToUNICODE(v);
    if (a.Take("manufacturer", v))
        m.info.manufacturer = Toolkit::UTF8::ToUNICODE(v);
    if (a.Take("model", v))
        m.info.model = Toolkit::UTF8::ToUNICODE(v);
    if (a.Take("imei", v)) {
        if (!isDigits(v, 15, 15))
            return "imei expects 15 digits";
        m.info.imei = v;
    }
    m.info.port = "ttyUSB0";
    if (a.Take("port", v))
        m.info.port = v;
    if (a.Take("pin", v)) {
        if (!isDigits(v, 4, 8))
            return "pin expects 4 to 8 digits";
        m.pin = v;
    }
    if (a.Take("puk", v)) {
        if (!isDigits(v, 8, 8))
            return "puk expects 8 digits";
        m.puk = v;
    }
    if (auto c = readAttempts(a, "pin-attempts", m.pinAttempts, m.attemptsKnown); !c.empty())
        return c;
    if (auto c = readAttempts(a, "puk-attempts", m.pukAttempts, m.attemptsKnown); !c.empty())
        return c;
    m.info.features = FeatureData | FeatureSms;
    if (a.Take("features", v) && !parseFeatures(v, m.info.features))
        return "features expects names such as data,sms";
    if (m.info.name.empty())
        m.info.name = Toolkit::UTF8::ToUNICODE(m.label);
    m.id = stableId(m.info.imei.empty() ? "label:" + m.label : "imei:" + m.info.imei);
    return {};
}

Cause readGhost(Arguments& a, ModemScript& m)
{
    std::string v;
    if (!a.Words().empty())
        return "ghost takes only name=TEXT";
    m.ghost = true;
    m.info.name = Toolkit::UTF8::ToUNICODE(a.Take("name", v) ? v : m.label);
    m.id = stableId("ghost:" + m.label);
    return {};
}

class Parser {
public:
    explicit Parser(Scenario& s) : m_scenario(s) {}

    void Line(unsigned int number, const std::string& text)
    {
        const Cause cause = read(number, text);
        if (cause.empty())
            return;
        ++m_scenario.errors;
        TK_LOG(Toolkit::LogError) << m_scenario.file << ":" << number << ": " << cause;
    }

private:
    ModemScript* find(const std::string& label)
    {
        for (auto& m : m_scenario.modems)
            if (m.label == label)
                return &m;
        return nullptr;
    }

    Cause read(unsigned int number, const std::string& text)
    {
        std::vector<Token> tokens;
        if (!tokenize(text, tokens))
            return "a quoted text is not closed";
        if (tokens.empty())
            return {};
        if (tokens.size() < 2 || !tokens[0].key.empty() || !tokens[1].key.empty())
            return "expected LABEL ACTION [ARGUMENTS]";
        const std::string label = tokens[0].value, action = tokens[1].value;
        Arguments args(std::vector<Token>(tokens.begin() + 2, tokens.end()));
        Cause cause = action == "modem" || action == "ghost" ? declare(number, label, action, args)
                                                             : step(number, label, action, args);
        if (cause.empty() && !args.Leftover().empty())
            cause = "unknown option " + shown(args.Leftover()) + " for " + shown(action);
        return cause;
    }

    Cause declare(unsigned int number, const std::string& label, const std::string& action, Arguments& args)
    {
        if (find(label))
            return shown(label) + " is declared twice";
        ModemScript m;
        m.label = label;
        m.line = number;
        Cause cause = action == "modem" ? readModem(args, m) : readGhost(args, m);
        if (cause.empty() && args.Leftover().empty())
            m_scenario.modems.push_back(std::move(m));
        return cause;
    }

    Cause step(unsigned int number, const std::string& label, const std::string& action, Arguments& args)
    {
        ModemScript* m = find(label);
        if (!m)
            return shown(label) + " is not declared (a modem or ghost line comes first)";
        const auto it = stepReaders().find(action);
        if (it == stepReaders().end())
            return "unknown action " + shown(action);
        if (m->ghost && it->second.first != StepKind::Plug && it->second.first != StepKind::Pull &&
            it->second.first != StepKind::Wait)
            return "a ghost only takes plug, pull and wait";
        ScenarioStep s;
        s.kind = it->second.first;
        s.line = number;
        Cause cause = it->second.second(args, s);
        if (cause.empty() && args.Leftover().empty())
            m->steps.push_back(std::move(s));
        return cause;
    }

    Scenario& m_scenario;
};

} // namespace

Scenario ScenarioParser::ParseText(const TString<char>& name, const std::string& text)
{
    Scenario scenario;
    scenario.file = name;
    Parser parser(scenario);
    std::istringstream in(text);
    std::string line;
    for (unsigned int number = 1; std::getline(in, line); ++number)
        parser.Line(number, line);
    return scenario;
}

Scenario ScenarioParser::ParseFile(const TString<char>& path)
{
    std::ifstream in(path, std::ios::binary);
    in.seekg(0, std::ios::end);
    const std::streamoff size = in ? std::streamoff(in.tellg()) : -1;
    if (size < 0 || size > c_maxFileSize) {
        TK_LOG(Toolkit::LogError) << path << ":0: " << (size < 0 ? "cannot be read" : "is too large for a scenario");
        Scenario empty;
        empty.file = path;
        empty.errors = 1;
        return empty;
    }
    in.seekg(0);
    std::string text(size_t(size), '\0');
    in.read(text.data(), size);
    return ParseText(path, text);
}

} // namespace Devices::Simulation
