#pragma once
// The words of a scenario line and the values they stand for. Each reader
// returns false for a word it does not accept and leaves its output alone
// or partly set.
#include "Devices/DeviceEvent.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Devices::Simulation::ScenarioWords {

struct Token {
    std::string key;   // empty for a positional word
    std::string value;
};

// Words separated by blanks; key=value pairs; "quoted text" in which a
// backslash keeps the next character as it is; # starts a comment outside
// quotes. False on an open quote.
bool Tokenize(const std::string& line, std::vector<Token>& tokens);

bool ParseNumber(const std::string& s, unsigned long max, unsigned int& out);
// "500ms", "2s", "1.5s", "1min".
bool ParseDuration(const std::string& s, uint64_t& ms);
// A step's name ("opened", "sim-missing", ...) or number.
bool ParseInitStep(const std::string& s, InitializationStep& step);
// "gsm" to "5g": one AccessTechnology bit.
bool ParseTech(const std::string& s, unsigned int& tech);
// Feature names joined by commas: UsedFeatures bits.
bool ParseFeatures(const std::string& s, unsigned int& features);
bool ParseOnOff(const std::string& s, bool& on);
bool IsDigits(const std::string& s, size_t min, size_t max);

// A word of the file as it may appear in a log entry: numbers are left
// out, since a misplaced SIM code would otherwise reach the log.
std::string Shown(const std::string& word);

// An identity that depends only on the key (never 0).
unsigned long long StableId(const std::string& key);

} // namespace Devices::Simulation::ScenarioWords
