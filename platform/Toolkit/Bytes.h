#pragma once
// A buffer of raw bytes, shared through smart_ptr: the content of a file
// held in memory (an image to decode, a document to parse).
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

#include <cstddef>
#include <vector>

namespace Toolkit {

class Bytes {
public:
    Bytes() = default;
    explicit Bytes(std::vector<unsigned char> data) : m_data(std::move(data)) {}
    Bytes(const void* data, size_t size);

    const unsigned char* GetData() const { return m_data.data(); }
    unsigned char* GetData() { return m_data.data(); }
    size_t GetSize() const { return m_data.size(); }
    bool IsEmpty() const { return m_data.empty(); }
    void Resize(size_t size) { m_data.resize(size); }
    void Append(const void* data, size_t size);

    const std::vector<unsigned char>& GetVector() const { return m_data; }
    std::vector<unsigned char>& GetVector() { return m_data; }

    // The whole content of a file; null (logged) when it cannot be read.
    static smart_ptr<Bytes> FromFile(const TString<char>& path);

private:
    std::vector<unsigned char> m_data;
};

} // namespace Toolkit
