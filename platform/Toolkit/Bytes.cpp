#include "Toolkit/Bytes.h"

#include "Toolkit/FSStream.h"
#include "Toolkit/ILogger.h"

#include <cstring>

namespace Toolkit {

Bytes::Bytes(const void* data, size_t size) { Append(data, size); }

void Bytes::Append(const void* data, size_t size)
{
    const auto* p = static_cast<const unsigned char*>(data);
    m_data.insert(m_data.end(), p, p + size);
}

smart_ptr<Bytes> Bytes::FromFile(const TString<char>& path)
{
    FSStream file(path, FSStream::ModeRead);
    if (!file.IsOpen()) {
        TK_LOG(LogError) << "cannot read " << path << ": " << std::strerror(file.GetError());
        return nullptr;
    }
    auto bytes = make_smart<Bytes>();
    if (!file.ReadAll(bytes->GetVector()))
        return nullptr;
    return bytes;
}

} // namespace Toolkit
