#include "appearance/ImageCtrlCache.h"

#include "appearance/ImageCache.h"
#include "controls/ImageCtrl.h"
#include "descriptors/ImageDescriptor.h"

#include "Toolkit/ILogger.h"

#include <charconv>

namespace UIKit {
namespace {

// Appends a decimal number without going through a stream.
template <class N>
void appendNumber(TString<wchar_t>& text, N value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(digits, end);
}

} // namespace

Toolkit::smart_ptr<ImageCtrl> ImageCtrlCache::Get(const ImageCache& images,
                                                  const Toolkit::smart_ptr<ImageDescriptor>& descriptor,
                                                  const wxSize& size)
{
    if (!descriptor || descriptor->GetName().empty())
        return {};
    unsigned int margins[4];
    ImageCtrl::MarginsOf(*descriptor, margins);
    Key(descriptor->GetName(), size, margins, m_keyBuffer);
    const auto cached = m_ctrls.find(m_keyBuffer);
    if (cached != m_ctrls.end())
        return cached->second;

    const wxImage* image = images.Find(descriptor->GetName());
    if (!image) {
        // Logged under the appearance operation that asks, once per name.
        if (m_reportedMissing.insert(descriptor->GetName()).second)
            Toolkit::LogStream(Toolkit::LogError, __FILE__, __LINE__, "ImageCtrlWithIdentifier")
                << "Missing image with identifier : " << descriptor->GetName();
        return {};
    }
    Toolkit::smart_ptr<ImageCtrl> made(new ImageCtrl(*image, size, margins[0], margins[1], margins[2], margins[3]));
    m_ctrls.emplace(m_keyBuffer, made);
    return made;
}

void ImageCtrlCache::Key(const TString<wchar_t>& identifier, const wxSize& size, const unsigned int margins[4],
                         TString<wchar_t>& key)
{
    key.clear();
    key += identifier;
    key += L'[';
    appendNumber(key, size.x);
    key += L'x';
    appendNumber(key, size.y);
    key += L',';
    for (int i = 0; i < 4; ++i) {
        if (i > 0)
            key += L'.';
        appendNumber(key, margins[i]);
    }
    key += L']';
}

} // namespace UIKit
