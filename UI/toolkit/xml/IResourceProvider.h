#pragma once
#include "module/Export.h"
// What documents and controls need from an appearance pack: description
// files, images, strings, and images rendered at a control's size. The
// appearance implements it; the factory is handed one and passes it to the
// documents it loads and the controls it builds, so tests give fakes.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/gdicmn.h>
#include <wx/image.h>

#include <vector>

namespace UIKit {

class ImageCtrl;
class ImageDescriptor;

class UIKIT_API IResourceProvider {
public:
    virtual ~IResourceProvider() = default;

    // The bytes of the pack's description file `name` (".xml" appended by
    // the pack); false when it cannot be read.
    virtual bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) = 0;
    // The pack's image of that name; false when the pack has none, `image`
    // then holding what is shown in its place (possibly an invalid image).
    virtual bool ReadGraphic(const TString<wchar_t>& name, wxImage& image) = 0;
    // The translated text of a string-table key; an unknown key gives
    // itself. The reference stays valid until the table is reloaded.
    virtual const TString<wchar_t>& GetAddStr(const TString<char>& key) = 0;
    virtual bool IsStrExist(const TString<char>& key) const = 0;
    // The descriptor's image rendered at `size` with its margins, shared by
    // every request for the same image, size and margins; null when the
    // descriptor names no loaded image.
    virtual Toolkit::smart_ptr<ImageCtrl> ImageCtrlWithIdentifier(Toolkit::smart_ptr<ImageDescriptor> descriptor,
                                                                  const wxSize& size) = 0;
};

} // namespace UIKit
