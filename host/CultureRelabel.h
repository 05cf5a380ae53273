#pragma once
// A change of language without rebuilding windows. Labels are resolved when
// a description is read, so the descriptions are read again in the new
// language and each labelled control takes the label of its namesake. A
// label that code has changed since (a status, a month name) is left for
// that code to set again: only controls still showing the label they were
// last given by a description change.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/BaseCtrlDescriptor.h"

#include <map>
#include <vector>

class wxWindow;

namespace UIKit {
class Control;
}

namespace host {

class CultureRelabel {
public:
    // The controls below `root` against the freshly read description of
    // `root` itself.
    void Apply(wxWindow* root, const Toolkit::smart_ptr<UIKit::BaseCtrlDescriptor>& fresh);
    // Reads the templates of the item files again, in the new language.
    void ReadTemplates(const std::vector<TString<wchar_t>>& itemFiles);
    // A screen against its template as last read again; nothing before the
    // first change of language. Screens built after a change come from the
    // templates read at start, so they need it as much as those built before.
    void ApplyToScreen(UIKit::Control* screen);
    // A window just built below `root` may sit where a destroyed one was:
    // what was given to those is forgotten.
    void ForgetWindows(wxWindow* root);

private:
    // The label a control was last given by a description.
    TString<wchar_t> givenLabel(const wxWindow* window) const;

    std::map<const wxWindow*, TString<wchar_t>> m_given;
    std::map<TString<wchar_t>, Toolkit::smart_ptr<UIKit::BaseCtrlDescriptor>> m_templates;
};

} // namespace host
