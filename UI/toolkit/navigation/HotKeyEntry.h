#pragma once
#include "module/Export.h"
// A key bound to a plug-in: pressing it calls the plug-in's Hotkey with the
// name. Key numbers are those the panel computes for a released key (the key
// code plus a fixed offset per held modifier).
#include "Toolkit/TString.h"

namespace UIKit {

class UIKIT_API HotKeyEntry {
public:
    HotKeyEntry(const TString<wchar_t>& pluginKey, const TString<wchar_t>& sequence, const TString<wchar_t>& name,
                int keyNumber);

    // The decimal number at the start of the text (leading blanks skipped,
    // reading stops at the first other character); 0 when there is none.
    static int ParseKeyNumber(const TString<wchar_t>& text);

    const TString<wchar_t>& GetPluginKey() const { return m_pluginKey; }
    const TString<wchar_t>& GetSequence() const { return m_sequence; }
    const TString<wchar_t>& GetName() const { return m_name; }
    int GetKeyNumber() const { return m_keyNumber; }

private:
    TString<wchar_t> m_pluginKey;
    TString<wchar_t> m_sequence;
    TString<wchar_t> m_name;
    int m_keyNumber;
};

} // namespace UIKit
