#include "appearance/ImageCache.h"

#include "appearance/IPack.h"
#include "xml/ErrorSink.h"

#include "Toolkit/UTF8.h"

#include <wx/log.h>
#include <wx/mstream.h>

namespace UIKit {
namespace {

const TString<wchar_t> c_graphics(L"graphics/");

// The part of an entry name after its last "/".
TString<wchar_t> fileNameOf(const TString<wchar_t>& entry)
{
    return TString<wchar_t>(entry.substr(entry.rfind(L'/') + 1));
}

} // namespace

const wxImage* ImageCache::Find(const TString<wchar_t>& name) const
{
    const auto found = m_images.find(name);
    return found == m_images.end() ? nullptr : &found->second;
}

const wxImage& ImageCache::Add(const TString<wchar_t>& name, const wxImage& image)
{
    return m_images.emplace(name, image).first->second;
}

wxImage ImageCache::Load(const IPack& pack, const TString<wchar_t>& name)
{
    const TString<wchar_t> entry = c_graphics + name;
    std::vector<unsigned char> bytes;
    if (!pack.ReadEntry(entry, bytes)) {
        reportOnce(pack, entry, "image missing from the pack");
        return wxImage();
    }
    const wxImage image = DecodePng(bytes);
    if (!image.IsOk()) {
        reportOnce(pack, entry, "image cannot be decoded as PNG");
        return image;
    }
    return Add(name, image);
}

int ImageCache::LoadMatching(const IPack& pack, const TString<wchar_t>& pattern)
{
    std::vector<TString<wchar_t>> entries;
    const int found = pack.FindFiles(c_graphics + pattern, entries);
    std::vector<unsigned char> bytes;
    for (const auto& entry : entries) {
        const wxImage image = pack.ReadEntry(entry, bytes) ? DecodePng(bytes) : wxImage();
        if (image.IsOk())
            Add(fileNameOf(entry), image);
        else
            reportOnce(pack, entry, "image cannot be decoded as PNG");
    }
    return found;
}

wxImage ImageCache::DecodePng(const std::vector<unsigned char>& bytes)
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

void ImageCache::reportOnce(const IPack& pack, const TString<wchar_t>& entry, const char* problem)
{
    if (m_reported.insert(pack.GetPath() + L"|" + entry).second)
        ErrorSink::Report(Toolkit::UTF8::ToUTF8(entry), 0, problem);
}

} // namespace UIKit
