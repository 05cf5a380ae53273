#include "Toolkit/RegExpException.h"

namespace Toolkit {

RegExpException::RegExpException(const TString<char>& message, long offset)
    : std::runtime_error(message), m_offset(offset)
{
}

} // namespace Toolkit
