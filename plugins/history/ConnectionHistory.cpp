#include "ConnectionHistory.h"

#include "Toolkit/AtomicFile.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/UTF8.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace historyplugin {
namespace {

constexpr char c_separator = '\t';
constexpr size_t c_fields = 5;

std::vector<std::string_view> split(std::string_view line)
{
    std::vector<std::string_view> fields;
    size_t from = 0;
    for (size_t at = line.find(c_separator); at != std::string_view::npos; at = line.find(c_separator, from)) {
        fields.push_back(line.substr(from, at - from));
        from = at + 1;
    }
    fields.push_back(line.substr(from));
    return fields;
}

bool parseNumber(std::string_view text, uint64_t& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

// "YYYY-MM-DD HH:MM:SS" with every digit where it belongs.
bool isTimestamp(std::string_view text)
{
    static constexpr std::string_view c_shape = "0000-00-00 00:00:00";
    if (text.size() != c_shape.size())
        return false;
    for (size_t i = 0; i < text.size(); ++i)
        if (c_shape[i] == '0' ? (text[i] < '0' || text[i] > '9') : text[i] != c_shape[i])
            return false;
    return true;
}

// Tabs and line ends in a device's name would break the line apart.
TString<char> flatten(const TString<wchar_t>& text)
{
    TString<char> utf8 = Toolkit::UTF8::ToUTF8(text);
    std::replace_if(utf8.begin(), utf8.end(), [](char c) { return c == c_separator || c == '\n' || c == '\r'; }, ' ');
    return utf8;
}

} // namespace

ConnectionHistory::ConnectionHistory(const TString<char>& directory) : m_directory(directory)
{
    load();
}

TString<char> ConnectionHistory::Path() const
{
    TString<char> path = m_directory;
    Toolkit::PathManager::AppendPath(path, c_fileName);
    return path;
}

TString<char> ConnectionHistory::FormatLine(const HistoryEntry& entry)
{
    TString<char> line = flatten(entry.start);
    for (uint64_t number : {entry.durationSeconds, entry.bytesSent, entry.bytesReceived})
        line += c_separator + std::to_string(number);
    return line + c_separator + flatten(entry.device);
}

bool ConnectionHistory::ParseLine(const TString<char>& line, HistoryEntry& entry, const char*& cause)
{
    const auto fields = split(line);
    cause = nullptr;
    if (fields.size() != c_fields)
        cause = "expected 5 fields separated by tabs";
    else if (!isTimestamp(fields[0]))
        cause = "the start is not a date and time";
    else if (!parseNumber(fields[1], entry.durationSeconds) || !parseNumber(fields[2], entry.bytesSent) ||
             !parseNumber(fields[3], entry.bytesReceived))
        cause = "the duration or a byte count is not a number";
    if (cause)
        return false;
    entry.start = Toolkit::UTF8::ToUNICODE(fields[0]);
    entry.device = Toolkit::UTF8::ToUNICODE(fields[4]);
    return true;
}

void ConnectionHistory::load()
{
    std::ifstream in{std::string(Path())};
    if (!in)
        return;
    std::string line;
    for (unsigned number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#')
            continue;
        HistoryEntry entry;
        const char* cause = nullptr;
        if (ParseLine(line, entry, cause))
            m_entries.push_back(std::move(entry));
        else
            TK_LOG(Toolkit::LogError) << Path() << ":" << number << ": " << cause << "; the line is skipped";
    }
}

bool ConnectionHistory::Append(const HistoryEntry& entry)
{
    m_entries.push_back(entry);
    return save();
}

bool ConnectionHistory::save()
{
    std::error_code error;
    std::filesystem::create_directories(std::string(m_directory), error);
    if (error || ::access(m_directory.c_str(), W_OK) != 0) {
        if (!m_writeFailureLogged)
            TK_LOG(Toolkit::LogError) << "cannot write the connection history in " << m_directory << ": "
                                      << (error ? error.message() : std::strerror(errno))
                                      << "; new sessions are kept until the program ends";
        m_writeFailureLogged = true;
        return false;
    }
    TString<char> text = "# connection history: start, seconds, bytes sent, bytes received, device\n";
    for (const auto& kept : m_entries)
        text += FormatLine(kept) + "\n";
    // A write that fails here is logged by the writer; the old file stays whole.
    return Toolkit::AtomicFile::Write(Path(), text);
}

} // namespace historyplugin
