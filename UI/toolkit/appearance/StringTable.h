#pragma once
#include "module/Export.h"
// The strings of the current culture by key. Keys are UTF-8 and
// case-sensitive; a later definition of a key replaces the earlier one.
// References handed out stay valid until the key is replaced or the table
// is cleared.
//
// Keys come from downloaded language files, so they are hashed with a keyed
// hash (SipHash) under a key drawn once per process: no file can choose keys
// that share a hash and make loading quadratic, as it could with a plain
// arithmetic hash.
#include "Toolkit/TString.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace UIKit {

class UIKIT_API StringTable {
public:
    // The text of the key; the empty string for an empty key and
    // "Missing Label key" for a key that is not defined.
    const TString<wchar_t>& Get(const TString<char>& key) const;
    // True when the key is not empty and defined.
    bool Contains(const TString<char>& key) const;
    // Defines an undefined key as itself first, then returns its text.
    const TString<wchar_t>& GetOrAdd(const TString<char>& key);
    void Set(const TString<char>& key, const TString<wchar_t>& text);
    void Clear() { m_strings.clear(); }
    size_t Size() const { return m_strings.size(); }

    static const TString<wchar_t>& MissingText();

private:
    struct KeyHash {
        size_t operator()(const TString<char>& key) const noexcept;
    };

    std::unordered_map<TString<char>, TString<wchar_t>, KeyHash> m_strings;
};

} // namespace UIKit
