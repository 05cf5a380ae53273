#include "ConnectionHistory.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/PathManager.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace history {
namespace {

const char* const c_header = "connection-history 1";

bool parse(const std::string& line, ConnectionHistory::Entry& entry)
{
    std::istringstream in(line);
    std::string rest;
    return bool(in >> entry.start >> entry.durationMs >> entry.sent >> entry.received) && !(in >> rest) &&
           entry.start >= 0;
}

} // namespace

ConnectionHistory::ConnectionHistory(TString<char> path) : m_path(std::move(path))
{
    load();
}

TString<char> ConnectionHistory::DefaultPath()
{
    return Toolkit::PathManager::Instance().GetStateDir() + "/connection-history";
}

// Keeps every line that reads as an entry. Anything else makes the file
// suspect: it is set aside as it is, so nothing in it is lost, and the
// entries read are written to a fresh file with the next session.
void ConnectionHistory::load()
{
    std::ifstream in(m_path.c_str());
    if (!in)
        return;
    std::string line;
    bool corrupt = !std::getline(in, line) || line != c_header;
    for (Entry entry; std::getline(in, line);) {
        if (parse(line, entry))
            m_entries.push_back(entry);
        else
            corrupt = true;
    }
    if (!corrupt)
        return;
    std::error_code error;
    std::filesystem::rename(m_path.c_str(), (m_path + ".corrupt").c_str(), error);
    TK_LOG(Toolkit::LogError) << "the connection history " << m_path << " is damaged: " << m_entries.size()
                              << " entries kept, the file set aside as " << m_path << ".corrupt";
}

bool ConnectionHistory::Add(const Entry& entry)
{
    m_entries.push_back(entry);
    return save();
}

bool ConnectionHistory::save()
{
    const TString<char> temporary = m_path + ".new";
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(m_path.c_str()).parent_path(), error);
    bool written = false;
    {
        std::ofstream out(temporary.c_str(), std::ios::trunc);
        out << c_header << '\n';
        for (const auto& e : m_entries)
            out << e.start << ' ' << e.durationMs << ' ' << e.sent << ' ' << e.received << '\n';
        out.flush();
        written = bool(out);
    }
    written = written && std::rename(temporary.c_str(), m_path.c_str()) == 0;
    if (!written) {
        std::remove(temporary.c_str());
        if (!m_saveFailed)
            TK_LOG(Toolkit::LogError) << "cannot write the connection history " << m_path
                                      << "; its entries are kept until it can be written";
    }
    m_saveFailed = !written;
    return written;
}

} // namespace history
