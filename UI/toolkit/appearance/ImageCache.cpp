#include "appearance/ImageCache.h"

#include "appearance/IPack.h"
#include "appearance/PackLimits.h"
#include "appearance/TextExcerpt.h"
#include "xml/ErrorSink.h"

#include "Toolkit/UTF8.h"

#include <wx/log.h>
#include <wx/mstream.h>

#include <algorithm>
#include <iterator>

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
    const wxImage image = decodeEntry(pack, c_graphics + name);
    return image.IsOk() ? Add(name, image) : image;
}

int ImageCache::LoadMatching(const IPack& pack, const TString<wchar_t>& pattern)
{
    std::vector<TString<wchar_t>> entries;
    const int found = pack.FindFiles(c_graphics + pattern, entries);
    for (const auto& entry : entries) {
        const wxImage image = decodeEntry(pack, entry);
        if (image.IsOk())
            Add(fileNameOf(entry), image);
    }
    return found;
}

wxImage ImageCache::decodeEntry(const IPack& pack, const TString<wchar_t>& entry)
{
    std::vector<unsigned char> bytes;
    if (!pack.ReadEntry(entry, bytes)) {
        reportOnce(pack, entry, "image missing from the pack");
        return wxImage();
    }
    uint32_t width = 0;
    uint32_t height = 0;
    if (PngSize(bytes, width, height) && !withinLimits(pack, entry, width, height))
        return wxImage();
    const wxImage image = DecodePng(bytes);
    if (!image.IsOk())
        reportOnce(pack, entry, "image cannot be decoded as PNG");
    return image;
}

bool ImageCache::withinLimits(const IPack& pack, const TString<wchar_t>& entry, uint32_t width, uint32_t height)
{
    const PackLimits& limits = PackLimits::Current();
    if (width <= limits.imageSide && height <= limits.imageSide && uint64_t(width) * height <= limits.imagePixels)
        return true;
    reportOnce(pack, entry,
               "image declares " + std::to_string(width) + "x" + std::to_string(height) + " pixels, more than the " +
                   std::to_string(limits.imageSide) + " per side or " + std::to_string(limits.imagePixels) +
                   " in all allowed for one image: not decoded");
    return false;
}

bool ImageCache::PngSize(const std::vector<unsigned char>& bytes, uint32_t& width, uint32_t& height)
{
    // Signature (8 bytes), then the IHDR chunk: length (4), type (4), width and height (4 each, big-endian).
    static const unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (bytes.size() < 24 || !std::equal(std::begin(signature), std::end(signature), bytes.begin()) ||
        std::string(bytes.begin() + 12, bytes.begin() + 16) != "IHDR")
        return false;
    const auto bigEndian = [&bytes](size_t at) {
        return uint32_t(bytes[at]) << 24 | uint32_t(bytes[at + 1]) << 16 | uint32_t(bytes[at + 2]) << 8 |
               uint32_t(bytes[at + 3]);
    };
    width = bigEndian(16);
    height = bigEndian(20);
    return true;
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

void ImageCache::reportOnce(const IPack& pack, const TString<wchar_t>& entry, const std::string& problem)
{
    if (m_reported.insert(pack.GetPath() + L"|" + entry).second)
        ErrorSink::Report(TextExcerpt::Name(entry), 0, problem);
}

} // namespace UIKit
