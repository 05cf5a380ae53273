#include "descriptors/WritableDataButtonCtrlDescriptor.h"

namespace UIKit {

WritableDataButtonCtrlDescriptor::WritableDataButtonCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node)
    : ButtonCtrlDescriptor(node)
{
}

WritableDataButtonCtrlDescriptor::WritableDataButtonCtrlDescriptor(
    const Toolkit::smart_ptr<ButtonCtrlDescriptor>& button, ValueMap values)
    : ButtonCtrlDescriptor(button), m_values(std::move(values))
{
}

void WritableDataButtonCtrlDescriptor::AddValue(const TString<wchar_t>& key, const TString<wchar_t>& value)
{
    m_values[key] = value;
}

const TString<wchar_t>& WritableDataButtonCtrlDescriptor::GetValue(const TString<wchar_t>& key) const
{
    static const TString<wchar_t> empty;
    const auto it = m_values.find(key);
    return it == m_values.end() ? empty : it->second;
}

void WritableDataButtonCtrlDescriptor::ClearValue()
{
    m_values.clear();
}

} // namespace UIKit
