#pragma once
#include "module/Export.h"
// The part of every control description that all controls share: identity,
// geometry, flags, colours, placement in the parent, and the descriptors of
// the child controls and templates declared inside it. A constructor reads
// the element's own values only; the factory, which knows the classes of
// the children, builds the child descriptors and attaches them. Never
// changed afterwards; shared through smart pointers.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "descriptors/ContentAlignment.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <vector>

namespace UIKit {

class XMLNode;
class BaseCtrlDescriptor;
class CtrlFactory;
using DescriptorList = std::vector<Toolkit::smart_ptr<BaseCtrlDescriptor>>;

class UIKIT_API BaseCtrlDescriptor {
public:
    explicit BaseCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    // Copies every value and shares the child and template descriptors.
    explicit BaseCtrlDescriptor(const Toolkit::smart_ptr<BaseCtrlDescriptor>& other);
    virtual ~BaseCtrlDescriptor() = default;

    // The first descriptor of the list with exactly this name; null entries
    // are skipped.
    static Toolkit::smart_ptr<BaseCtrlDescriptor> GetFromList(const DescriptorList& list,
                                                             const TString<wchar_t>& name);
    // A direct child control by name.
    Toolkit::smart_ptr<BaseCtrlDescriptor> GetControl(const TString<wchar_t>& name) const;
    // A template by name; with `recursive`, also those of child controls,
    // depth first in document order.
    Toolkit::smart_ptr<BaseCtrlDescriptor> GetTemplate(const TString<wchar_t>& name, bool recursive) const;

    const TString<wchar_t>& GetClass() const { return m_class; }
    const TString<wchar_t>& GetName() const { return m_name; }
    int GetId() const { return m_id; }
    const wxRect& GetBounds() const { return m_bounds; }
    const wxSize& GetMinSize() const { return m_minSize; }
    const wxSize& GetMaxSize() const { return m_maxSize; }
    bool IsVisible() const { return m_visible; }
    bool IsEnabled() const { return m_enable; }
    bool IsTab() const { return m_tab; }
    const wxColour& GetBackColour() const { return m_backColour; }
    const wxColour& GetBackAltColour() const { return m_backAltColour; }
    const wxColour& GetForeColour() const { return m_foreColour; }
    const wxColour& GetForeSelectedColour() const { return m_foreSelectedColour; }
    // Left, top, right, bottom (in the rectangle's x, y, width, height).
    const wxRect& GetPadding() const { return m_padding; }
    // The element gives a padding, possibly of zeros.
    bool HasPadding() const { return m_hasPadding; }
    Drawing::ContentAlignment GetParentPosition() const { return m_parentPosition; }
    const DescriptorList& GetControls() const { return m_controls; }
    const DescriptorList& GetTemplates() const { return m_templates; }

protected:
    BaseCtrlDescriptor(const BaseCtrlDescriptor&) = default;

private:
    friend class CtrlFactory;
    void attachChildren(DescriptorList controls, DescriptorList templates);

    TString<wchar_t> m_class;
    TString<wchar_t> m_name;
    int m_id = -1;
    wxRect m_bounds;
    wxSize m_minSize;
    wxSize m_maxSize;
    bool m_visible = true;
    bool m_enable = true;
    bool m_tab = true;
    wxColour m_backColour;
    wxColour m_backAltColour;
    wxColour m_foreColour;
    wxColour m_foreSelectedColour;
    wxRect m_padding;
    bool m_hasPadding = false;
    Drawing::ContentAlignment m_parentPosition = Drawing::MiddleRight;
    DescriptorList m_controls;
    DescriptorList m_templates;
};

} // namespace UIKit
