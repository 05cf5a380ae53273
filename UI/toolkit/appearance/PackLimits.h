#pragma once
#include "module/Export.h"
// How much of a pack the appearance reads before it gives up on an entry,
// an image, a line or the whole pack. Packs are files that users download
// and swap, so every size read from one is bounded; the defaults are far
// above any real skin (a few hundred entries, images of a few hundred
// pixels, language lines of a few hundred bytes). Each limit, when hit, is
// reported with the file and the limit.
//
// The limits in force can be lowered, so that tests trip them with small
// inputs. GUI thread only, like the rest of the appearance.
#include <cstddef>
#include <cstdint>

namespace UIKit {

struct UIKIT_API PackLimits {
    // Bytes inflated or read from one entry (documents, images, language files).
    static constexpr uint64_t c_maxEntryBytes = uint64_t(64) << 20;
    // Bytes of one language-file line.
    static constexpr size_t c_maxLineBytes = size_t(64) << 10;
    // Width or height of one image, and its pixel count, as its header declares them.
    static constexpr uint32_t c_maxImageSide = 8192;
    static constexpr uint64_t c_maxImagePixels = uint64_t(4096) * 4096;
    // File entries of one zip pack.
    static constexpr size_t c_maxPackEntries = 10000;

    uint64_t entryBytes = c_maxEntryBytes;
    size_t lineBytes = c_maxLineBytes;
    uint32_t imageSide = c_maxImageSide;
    uint64_t imagePixels = c_maxImagePixels;
    size_t packEntries = c_maxPackEntries;

    // The limits in force.
    static PackLimits& Current();
};

} // namespace UIKit
