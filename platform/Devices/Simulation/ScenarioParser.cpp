#include "Devices/Simulation/ScenarioParser.h"

#include "Devices/Simulation/ScenarioWords.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace Devices::Simulation {
namespace {

using namespace ScenarioWords;

// Scenario files are small; anything larger is not one.
constexpr std::streamoff c_maxFileSize = 1 << 20;

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
    if (a.Take("giveup", v) && !ParseDuration(v, s.duration))
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
    if (a.Take("tech", v) && !ParseTech(v, s.number))
        return "tech expects gsm, gprs, edge, umts, hsdpa, hspa, hspa+, lte or 5g";
    s.number2 = 60;
    if (a.Take("signal", v) && !ParseNumber(v, 100, s.number2))
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
        !ParseNumber(up, 1ul << 30, s.number) || !ParseNumber(down, 1ul << 30, s.number2))
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
             return oneWord(a, "a duration such as 500ms or 2s", [&](const std::string& w) { return ParseDuration(w, s.duration); });
         }}},
        {"init", {StepKind::Init, [](Arguments& a, ScenarioStep& s) {
             for (const auto& w : a.Words()) {
                 InitializationStep step;
                 if (!ParseInitStep(w, step))
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
        {"refuse", {StepKind::Refuse, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "none, denied, no-service or timeout", [&](const std::string& w) {
                 static const std::map<std::string, ConnectionError> causes{
                     {"none", ConnectionErrorNone}, {"denied", ConnectionErrorDenied},
                     {"no-service", ConnectionErrorNoService}, {"timeout", ConnectionErrorTimeout}};
                 const auto it = causes.find(w);
                 s.number = it == causes.end() ? 0 : unsigned(it->second);
                 return it != causes.end();
             });
         }}},
        {"signal", {StepKind::Signal, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "a percentage from 0 to 100", [&](const std::string& w) { return ParseNumber(w, 100, s.number); });
         }}},
        {"operator", {StepKind::Operator, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "an operator name", [&](const std::string& w) {
                 s.text = Toolkit::UTF8::ToUNICODE(w);
                 return !w.empty();
             });
         }}},
        {"roaming", {StepKind::Roaming, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "on or off", [&](const std::string& w) { return ParseOnOff(w, s.flag); });
         }}},
        {"tech", {StepKind::Tech, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "gsm, gprs, edge, umts, hsdpa, hspa, hspa+, lte or 5g", [&](const std::string& w) { return ParseTech(w, s.number); });
         }}},
        {"features", {StepKind::Features, [](Arguments& a, ScenarioStep& s) {
             return oneWord(a, "features such as data,sms", [&](const std::string& w) { return ParseFeatures(w, s.number); });
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
    if (!ParseNumber(v, 99, attempts) || attempts == 0)
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
        if (!IsDigits(v, 15, 15))
            return "imei expects 15 digits";
        m.info.imei = v;
    }
    m.info.port = "ttyUSB0";
    if (a.Take("port", v))
        m.info.port = v;
    if (a.Take("pin", v)) {
        if (!IsDigits(v, 4, 8))
            return "pin expects 4 to 8 digits";
        m.pin = v;
    }
    if (a.Take("puk", v)) {
        if (!IsDigits(v, 8, 8))
            return "puk expects 8 digits";
        m.puk = v;
    }
    if (auto c = readAttempts(a, "pin-attempts", m.pinAttempts, m.attemptsKnown); !c.empty())
        return c;
    if (auto c = readAttempts(a, "puk-attempts", m.pukAttempts, m.attemptsKnown); !c.empty())
        return c;
    m.info.features = FeatureData | FeatureSms;
    if (a.Take("features", v) && !ParseFeatures(v, m.info.features))
        return "features expects names such as data,sms";
    if (m.info.name.empty())
        m.info.name = Toolkit::UTF8::ToUNICODE(m.label);
    m.id = StableId(m.info.imei.empty() ? "label:" + m.label : "imei:" + m.info.imei);
    return {};
}

Cause readGhost(Arguments& a, ModemScript& m)
{
    std::string v;
    if (!a.Words().empty())
        return "ghost takes only name=TEXT";
    m.ghost = true;
    m.info.name = Toolkit::UTF8::ToUNICODE(a.Take("name", v) ? v : m.label);
    m.id = StableId("ghost:" + m.label);
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
        if (!Tokenize(text, tokens))
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
            cause = "unknown option " + Shown(args.Leftover()) + " for " + Shown(action);
        return cause;
    }

    Cause declare(unsigned int number, const std::string& label, const std::string& action, Arguments& args)
    {
        if (find(label))
            return Shown(label) + " is declared twice";
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
            return Shown(label) + " is not declared (a modem or ghost line comes first)";
        const auto it = stepReaders().find(action);
        if (it == stepReaders().end())
            return "unknown action " + Shown(action);
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
