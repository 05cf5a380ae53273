#pragma once
// Thrown by RegExp when a pattern does not compile or a match cannot run
// to its end; carries PCRE2's message.
#include "Toolkit/TString.h"

#include <stdexcept>

namespace Toolkit {

class RegExpException : public std::runtime_error {
public:
    // offset: where in the pattern compilation stopped; -1 for match errors.
    explicit RegExpException(const TString<char>& message, long offset = -1);

    // The message as UTF-8.
    TString<char> GetMessage() const { return what(); }
    long GetOffset() const { return m_offset; }

private:
    long m_offset;
};

} // namespace Toolkit
