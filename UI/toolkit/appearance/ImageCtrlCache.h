#pragma once
#include "module/Export.h"
// Image controls (a skin image rendered at a size with its margins), shared
// by every request for the same image, size and four margins. The key is
// text: "button.png[120x32,4.4.4.4]". Nothing is evicted.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/gdicmn.h>

#include <map>
#include <set>

namespace UIKit {

class ImageCache;
class ImageCtrl;
class ImageDescriptor;

class UIKIT_API ImageCtrlCache {
public:
    // The control for the descriptor's image at size; made from the image
    // cache on the first request (no image is loaded here). Null for a null
    // or unnamed descriptor, and (logged once per name) for an image that
    // was never loaded.
    Toolkit::smart_ptr<ImageCtrl> Get(const ImageCache& images, const Toolkit::smart_ptr<ImageDescriptor>& descriptor,
                                      const wxSize& size);
    size_t Size() const { return m_ctrls.size(); }

    static void Key(const TString<wchar_t>& identifier, const wxSize& size, const unsigned int margins[4],
                    TString<wchar_t>& key);

private:
    std::map<TString<wchar_t>, Toolkit::smart_ptr<ImageCtrl>> m_ctrls;
    // Reused by every lookup so that a cache hit allocates nothing.
    TString<wchar_t> m_keyBuffer;
    std::set<TString<wchar_t>> m_reportedMissing;
};

} // namespace UIKit
