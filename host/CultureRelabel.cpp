#include "CultureRelabel.h"

#include "controls/Control.h"
#include "descriptors/StaticTextCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "xml/XMLLoader.h"

#include <wx/window.h>

#include <functional>

namespace host {
namespace {

using Labels = std::map<TString<wchar_t>, TString<wchar_t>>;

const UIKit::StaticTextCtrlDescriptor* labelled(const Toolkit::smart_ptr<UIKit::BaseCtrlDescriptor>& descriptor)
{
    return dynamic_cast<const UIKit::StaticTextCtrlDescriptor*>(descriptor.get());
}

// Name -> label of every labelled description in the tree; the first of a
// name wins, as the window lookup by name finds the first.
void collectLabels(const UIKit::BaseCtrlDescriptor& descriptor, Labels& labels)
{
    for (const auto& child : descriptor.GetControls()) {
        if (const auto* text = labelled(child))
            labels.emplace(text->GetName(), text->GetLabel());
        collectLabels(*child, labels);
    }
}

void forEachControl(wxWindow* root, const std::function<void(UIKit::Control&)>& visit)
{
    for (wxWindow* child : root->GetChildren()) {
        if (auto* control = dynamic_cast<UIKit::Control*>(child))
            visit(*control);
        forEachControl(child, visit);
    }
}

} // namespace

TString<wchar_t> CultureRelabel::givenLabel(const wxWindow* window) const
{
    const auto found = m_given.find(window);
    if (found != m_given.end())
        return found->second;
    const auto* control = dynamic_cast<const UIKit::Control*>(window);
    const auto* text = control ? labelled(control->GetDescriptor()) : nullptr;
    return text ? text->GetLabel() : TString<wchar_t>();
}

void CultureRelabel::Apply(wxWindow* root, const Toolkit::smart_ptr<UIKit::BaseCtrlDescriptor>& fresh)
{
    if (!root || !fresh)
        return;
    Labels labels;
    collectLabels(*fresh, labels);
    forEachControl(root, [&](UIKit::Control& control) {
        const auto found = labels.find(TString<wchar_t>(control.GetName().ToStdWstring()));
        if (found == labels.end() || !labelled(control.GetDescriptor()))
            return;
        if (control.GetControlLabel() != givenLabel(&control))
            return;
        control.SetControlLabel(found->second);
        m_given[&control] = found->second;
    });
}

void CultureRelabel::ReadTemplates(const std::vector<TString<wchar_t>>& itemFiles)
{
    auto factory = UIKit::CtrlFactory::Instance();
    if (!factory)
        return;
    m_templates.clear();
    for (const auto& file : itemFiles) {
        UIKit::XMLLoader loader;
        loader.SetResources(factory->GetResources());
        if (!loader.LoadFromAppearance(file))
            continue;
        std::vector<Toolkit::smart_ptr<UIKit::XMLNode>> nodes;
        loader.GetNodes(nodes, "Templates/Control");
        for (const auto& node : nodes)
            if (auto descriptor = factory->CreateDescriptor(node))
                m_templates.emplace(descriptor->GetClass(), descriptor);
    }
}

void CultureRelabel::ForgetWindows(wxWindow* root)
{
    if (!root)
        return;
    m_given.erase(root);
    for (wxWindow* child : root->GetChildren())
        ForgetWindows(child);
}

void CultureRelabel::ApplyToScreen(UIKit::Control* screen)
{
    if (!screen || !screen->GetDescriptor())
        return;
    const auto found = m_templates.find(screen->GetDescriptor()->GetClass());
    if (found != m_templates.end())
        Apply(screen, found->second);
}

} // namespace host
