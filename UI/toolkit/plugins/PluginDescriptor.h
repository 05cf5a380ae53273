#pragma once
#include "module/Export.h"
// How a plug-in describes itself: read from the root element of its item
// file (attributes "namespace", "name", "id"; children "Icon" and
// "IconDisabled" naming pack images, "Title" and "Description" naming
// string keys).
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <wx/image.h>

namespace UIKit {

class XMLNode;

class UIKIT_API PluginDescriptor {
public:
    explicit PluginDescriptor(Toolkit::smart_ptr<XMLNode> root);
    virtual ~PluginDescriptor();

    const TString<wchar_t>& GetNamespace() const { return m_namespace; }
    const TString<wchar_t>& GetName() const { return m_name; }
    int GetId() const { return m_id; }
    const wxImage& GetIcon() const { return m_icon; }
    const wxImage& GetDisabledIcon() const { return m_disabledIcon; }
    const TString<wchar_t>& GetTitle() const { return m_title; }
    const TString<wchar_t>& GetDescription() const { return m_description; }

private:
    TString<wchar_t> m_namespace;
    TString<wchar_t> m_name;
    int m_id = -1;
    wxImage m_icon;
    wxImage m_disabledIcon;
    TString<wchar_t> m_title;
    TString<wchar_t> m_description;
};

} // namespace UIKit
