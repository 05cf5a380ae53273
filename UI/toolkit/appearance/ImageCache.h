#pragma once
#include "module/Export.h"
// The decoded images of the packs by identifier (the file name under
// "graphics", extension included). Images are decoded as PNG whatever their
// extension, once per identifier, and then shared. Nothing is evicted, and
// the cache does not depend on the pack it was filled from: images stay
// when another pack is selected.
//
// A missing or undecodable image is reported once per pack and name, yet
// looked for again on the next request, so a pack fixed on disk is seen.
// An image whose header declares more pixels than the image limits allow is
// refused before it is decoded, since decoding would allocate them all.
#include "Toolkit/TString.h"

#include <wx/image.h>

#include <cstdint>
#include <map>
#include <string>
#include <set>
#include <vector>

namespace UIKit {

class IPack;

class UIKIT_API ImageCache {
public:
    // The cached image, or null.
    const wxImage* Find(const TString<wchar_t>& name) const;
    // Caches image under name unless an image is cached there already;
    // returns the cached one.
    const wxImage& Add(const TString<wchar_t>& name, const wxImage& image);
    // Decodes "graphics/<name>" of the pack and caches it; an invalid image,
    // not cached, when the pack does not hold a decodable image.
    wxImage Load(const IPack& pack, const TString<wchar_t>& name);
    // Decodes and caches every image of the pack matching
    // "graphics/<pattern>" under its file name; the pack's search result
    // (1 found, 0 none, -1 the pack cannot search).
    int LoadMatching(const IPack& pack, const TString<wchar_t>& pattern);
    size_t Size() const { return m_images.size(); }

    // The PNG in bytes, or an invalid image.
    static wxImage DecodePng(const std::vector<unsigned char>& bytes);
    // The width and height a PNG's header declares; false when bytes do not
    // start with a PNG signature and header.
    static bool PngSize(const std::vector<unsigned char>& bytes, uint32_t& width, uint32_t& height);

private:
    // Reads and decodes one entry; an invalid image (reported once) when it
    // is missing, too large or not a PNG.
    wxImage decodeEntry(const IPack& pack, const TString<wchar_t>& entry);
    // Whether the declared size is within the image limits; reported once when not.
    bool withinLimits(const IPack& pack, const TString<wchar_t>& entry, uint32_t width, uint32_t height);
    void reportOnce(const IPack& pack, const TString<wchar_t>& entry, const std::string& problem);

    std::map<TString<wchar_t>, wxImage> m_images;
    // Pack path and entry of every problem already reported.
    std::set<TString<wchar_t>> m_reported;
};

} // namespace UIKit
