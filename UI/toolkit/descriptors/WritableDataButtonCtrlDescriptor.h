#pragma once
#include "module/Export.h"
// A button description that a program can attach data to at run time (for
// example the record a list row stands for).
#include "descriptors/ButtonCtrlDescriptor.h"

#include <map>

namespace UIKit {

class UIKIT_API WritableDataButtonCtrlDescriptor : public ButtonCtrlDescriptor {
public:
    using ValueMap = std::map<TString<wchar_t>, TString<wchar_t>>;

    explicit WritableDataButtonCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node);
    explicit WritableDataButtonCtrlDescriptor(const Toolkit::smart_ptr<ButtonCtrlDescriptor>& button,
                                              ValueMap values = {});

    // Sets the value of a key, replacing an earlier one.
    void AddValue(const TString<wchar_t>& key, const TString<wchar_t>& value);
    // The value of a key, or the empty string.
    const TString<wchar_t>& GetValue(const TString<wchar_t>& key) const;
    void ClearValue();
    const ValueMap& GetValues() const { return m_values; }

private:
    ValueMap m_values;
};

} // namespace UIKit
