#pragma once
// Reads the files of one appearance pack, a zip archive or a directory
// holding the same tree: description files at the top, images under
// "graphics", language files under one "strings.<culture>" folder each.
// An archive is opened, listed and closed again for every call; callers
// cache what they read.
#include "Toolkit/TString.h"

#include <wx/image.h>

#include <functional>
#include <vector>

namespace UIKit {

class PackReader {
public:
    // Receives each line of a language file; returning false skips the
    // rest of that file.
    using LineVisitor =
        std::function<bool(const TString<wchar_t>& file, size_t lineNumber, const TString<wchar_t>& line)>;
    using ImageVisitor = std::function<void(const TString<wchar_t>& name, const wxImage& image)>;

    PackReader(const TString<wchar_t>& packPath, bool archive);

    // The whole description file name + ".xml"; a directory pack adds a
    // terminating zero byte. False when it is missing or empty.
    bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) const;
    // The image "graphics/<name>" decoded as PNG; invalid when missing or
    // not decodable.
    wxImage ReadGraphic(const TString<wchar_t>& name) const;
    // Decodes every image of an archive pack matching "graphics/<pattern>"
    // and hands over the valid ones by file name. The listing's result (1
    // found, 0 none, -1 failed); -1 for a directory pack.
    int ReadGraphics(const TString<wchar_t>& pattern, const ImageVisitor& found) const;
    // The culture codes of the "strings.<code>" folders, in name order.
    // False (logged by the archive or directory reader) when the pack
    // cannot be listed.
    bool ListCultureCodes(std::vector<TString<wchar_t>>& codes) const;
    // Every line of the culture's language files, file by file in name
    // order. False when the pack cannot be read.
    bool ReadLanguageLines(const TString<wchar_t>& code, const LineVisitor& visit) const;

private:
    static bool isInsidePack(const TString<wchar_t>& relative);
    static wxImage decodePng(const std::vector<unsigned char>& bytes);
    TString<wchar_t> pathOf(const TString<wchar_t>& relative) const;
    bool readFile(const TString<wchar_t>& relative, std::vector<unsigned char>& bytes) const;
    bool readArchiveEntry(const TString<wchar_t>& pattern, std::vector<unsigned char>& bytes) const;

    TString<wchar_t> m_path;
    bool m_archive;
};

} // namespace UIKit
