#include "appearance/PackReader.h"

#include "Toolkit/ArchiveZip.h"
#include "Toolkit/Directory.h"
#include "Toolkit/FSStream.h"
#include "Toolkit/PathManager.h"
#include "Toolkit/TextFile.h"
#include "Toolkit/ZipInputStream.h"

#include <wx/log.h>
#include <wx/mstream.h>

#include <map>

namespace UIKit {
namespace {

using Entries = std::map<TString<wchar_t>, Toolkit::ArchiveZipEntry>;

const TString<wchar_t> c_graphics(L"graphics/");
const TString<wchar_t> c_stringsPrefix(L"strings.");

// "strings.fr" (or "strings.fr/" as an archive lists it) gives "fr".
TString<wchar_t> cultureCodeOf(TString<wchar_t> folder)
{
    if (!folder.empty() && folder.back() == L'/')
        folder.pop_back();
    return TString<wchar_t>(folder.substr(folder.rfind(L'.') + 1));
}

// An archive folder name directly at the top of the pack: "name/".
bool isTopLevelFolder(const TString<wchar_t>& name)
{
    return name.find(L'/') == name.size() - 1;
}

} // namespace

PackReader::PackReader(const TString<wchar_t>& packPath, bool archive) : m_path(packPath), m_archive(archive) {}

bool PackReader::ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) const
{
    const TString<wchar_t> file = name + L".xml";
    const bool read = m_archive ? readArchiveEntry(file, bytes) : readFile(file, bytes);
    if (!read || bytes.empty()) {
        bytes.clear();
        return false;
    }
    // A directory pack hands out a terminated text, as it always has.
    if (!m_archive)
        bytes.push_back(0);
    return true;
}

wxImage PackReader::ReadGraphic(const TString<wchar_t>& name) const
{
    std::vector<unsigned char> bytes;
    const TString<wchar_t> file = c_graphics + name;
    const bool read = m_archive ? readArchiveEntry(file, bytes) : readFile(file, bytes);
    return read ? decodePng(bytes) : wxImage();
}

int PackReader::ReadGraphics(const TString<wchar_t>& pattern, const ImageVisitor& found) const
{
    if (!m_archive)
        return -1;
    Toolkit::ArchiveZip zip;
    if (!zip.Open(m_path, true))
        return -1;
    Entries entries;
    const int listed = zip.EntriesList(entries, c_graphics + pattern, Toolkit::ArchiveZip::EntryFiles);
    for (const auto& [name, entry] : entries) {
        std::vector<unsigned char> bytes;
        auto stream = zip.GetZipInputStream(entry);
        if (!stream || !stream->ReadAll(bytes))
            continue;
        const wxImage image = decodePng(bytes);
        if (image.IsOk())
            found(entry.GetFileName(), image);
    }
    zip.Close();
    return listed;
}

bool PackReader::ListCultureCodes(std::vector<TString<wchar_t>>& codes) const
{
    codes.clear();
    std::vector<TString<wchar_t>> folders;
    if (m_archive) {
        Toolkit::ArchiveZip zip;
        Entries entries;
        if (!zip.Open(m_path, true) ||
            zip.EntriesList(entries, c_stringsPrefix + L"*", Toolkit::ArchiveZip::EntryFolders) < 0)
            return false;
        for (const auto& [name, entry] : entries)
            if (isTopLevelFolder(name))
                folders.push_back(name);
    } else {
        const Toolkit::Directory dir(m_path);
        if (!dir.IsOpen() || !dir.GetDirectories(c_stringsPrefix + L"*", folders, 0))
            return false;
    }
    for (const auto& folder : folders) {
        const auto code = cultureCodeOf(folder);
        if (!code.empty()) // a bare "strings." folder names no culture
            codes.push_back(code);
    }
    return true;
}

bool PackReader::ReadLanguageLines(const TString<wchar_t>& code, const LineVisitor& visit) const
{
    const TString<wchar_t> folder = c_stringsPrefix + code;
    TString<wchar_t> line;
    if (m_archive) {
        Toolkit::ArchiveZip zip;
        Entries entries;
        if (!zip.Open(m_path, true) ||
            zip.EntriesList(entries, folder + L"/*", Toolkit::ArchiveZip::EntryFiles) < 0)
            return false;
        for (const auto& [name, entry] : entries) {
            auto stream = zip.GetZipInputStream(entry);
            for (size_t n = 1; stream && stream->ReadLine(line) && visit(name, n, line); ++n) {
            }
        }
        return true;
    }
    const Toolkit::Directory dir(pathOf(folder));
    std::vector<TString<wchar_t>> files;
    if (!dir.IsOpen() || !dir.GetFiles(L"*.*", files, 0))
        return false;
    for (const auto& name : files) {
        Toolkit::TextFile file;
        if (!file.Open(pathOf(folder + L"/" + name)))
            continue;
        const TString<wchar_t> label = folder + L"/" + name;
        for (size_t n = 1; file.ReadLine(line) && visit(label, n, line); ++n) {
        }
    }
    return true;
}

// Directory packs refuse names that would leave the pack, as archives
// refuse such entries.
bool PackReader::isInsidePack(const TString<wchar_t>& relative)
{
    if (relative.empty() || relative.front() == L'/')
        return false;
    for (const auto& part : relative.Split(L"/"))
        if (part == L"..")
            return false;
    return true;
}

wxImage PackReader::decodePng(const std::vector<unsigned char>& bytes)
{
    if (bytes.empty())
        return wxImage();
    // A bad image is answered with an invalid one; wx must not pop up its own error.
    wxLogNull quiet;
    wxMemoryInputStream in(bytes.data(), bytes.size());
    wxImage image;
    if (!image.LoadFile(in, wxBITMAP_TYPE_PNG))
        return wxImage();
    return image;
}

TString<wchar_t> PackReader::pathOf(const TString<wchar_t>& relative) const
{
    TString<wchar_t> path = m_path;
    Toolkit::PathManager::AppendPath(path, relative);
    return path;
}

bool PackReader::readFile(const TString<wchar_t>& relative, std::vector<unsigned char>& bytes) const
{
    const TString<wchar_t> path = pathOf(relative);
    if (!isInsidePack(relative) || !Toolkit::PathManager::FileExists(path))
        return false;
    Toolkit::FSStream file(path, Toolkit::FSStream::ModeRead);
    const long long length = file.Length();
    if (length <= 0)
        return false;
    bytes.resize(size_t(length));
    return file.Read(bytes.data(), bytes.size()) == length;
}

bool PackReader::readArchiveEntry(const TString<wchar_t>& pattern, std::vector<unsigned char>& bytes) const
{
    Toolkit::ArchiveZip zip;
    Entries entries;
    if (!zip.Open(m_path, true) || zip.EntriesList(entries, pattern, Toolkit::ArchiveZip::EntryFiles) != 1)
        return false;
    // The lowest name when the pattern matches several entries.
    auto stream = zip.GetZipInputStream(entries.begin()->second);
    return stream && stream->ReadAll(bytes);
}

} // namespace UIKit
