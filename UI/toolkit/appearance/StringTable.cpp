#include "appearance/StringTable.h"

#include "Toolkit/UTF8.h"

namespace UIKit {
namespace {

const TString<wchar_t>& emptyText()
{
    static const TString<wchar_t> empty;
    return empty;
}

} // namespace

const TString<wchar_t>& StringTable::MissingText()
{
    static const TString<wchar_t> missing(L"Missing Label key");
    return missing;
}

const TString<wchar_t>& StringTable::Get(const TString<char>& key) const
{
    if (key.empty())
        return emptyText();
    const auto found = m_strings.find(key);
    return found == m_strings.end() ? MissingText() : found->second;
}

bool StringTable::Contains(const TString<char>& key) const
{
    return !key.empty() && m_strings.find(key) != m_strings.end();
}

const TString<wchar_t>& StringTable::GetOrAdd(const TString<char>& key)
{
    if (key.empty())
        return emptyText();
    const auto found = m_strings.find(key);
    if (found != m_strings.end())
        return found->second;
    return m_strings.emplace(key, Toolkit::UTF8::ToUNICODE(key)).first->second;
}

void StringTable::Set(const TString<char>& key, const TString<wchar_t>& text)
{
    m_strings.insert_or_assign(key, text);
}

} // namespace UIKit
