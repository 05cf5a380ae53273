#pragma once
// What the XML reader needs from the active appearance pack: descriptor
// files, images and the string table. The appearance implements it and
// installs itself with XMLLoader::SetResourceProvider; tests install fakes.
#include "Toolkit/TString.h"

#include <wx/image.h>

#include <vector>

namespace UIKit {

class IResourceProvider {
public:
    virtual ~IResourceProvider() = default;

    // The bytes of the pack's description file `name` (".xml" appended by
    // the pack); false when it cannot be read.
    virtual bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) = 0;
    // The pack's image of that name, or an invalid image.
    virtual wxImage GetGraphic(const TString<wchar_t>& name) = 0;
    // The translated text of a string-table key; an unknown key gives
    // itself. The reference stays valid until the table is reloaded.
    virtual const TString<wchar_t>& GetAddStr(const TString<char>& key) = 0;
};

} // namespace UIKit
