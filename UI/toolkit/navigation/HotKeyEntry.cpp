#include "navigation/HotKeyEntry.h"

#include <climits>
#include <cwchar>

namespace UIKit {

HotKeyEntry::HotKeyEntry(const TString<wchar_t>& pluginKey, const TString<wchar_t>& sequence,
                         const TString<wchar_t>& name, int keyNumber)
    : m_pluginKey(pluginKey), m_sequence(sequence), m_name(name), m_keyNumber(keyNumber)
{
}

int HotKeyEntry::ParseKeyNumber(const TString<wchar_t>& text)
{
    const long value = std::wcstol(text.c_str(), nullptr, 10);
    // Out-of-range texts name no key; they must not wrap into one.
    return value > INT_MAX || value < INT_MIN ? 0 : int(value);
}

} // namespace UIKit
