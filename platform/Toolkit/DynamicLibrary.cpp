#include "Toolkit/DynamicLibrary.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"

#include <dlfcn.h>
#include <utility>

namespace Toolkit {
namespace {

// dlerror() text, or a fallback when the loader gave none.
const char* loaderError()
{
    const char* error = ::dlerror();
    return error ? error : "no reason given by the loader";
}

bool closeHandle(void* handle, const TString<char>& path)
{
    if (!handle)
        return false;
    if (::dlclose(handle) != 0) {
        TK_LOG(LogError) << "cannot unload library " << (path.empty() ? TString<char>("(detached)") : path)
                         << ": " << loaderError();
        return false;
    }
    return true;
}

} // namespace

DynamicLibrary::~DynamicLibrary()
{
    if (m_handle)
        Unload();
}

bool DynamicLibrary::Load(const TString<char>& path)
{
    if (m_handle)
        Unload();
    m_path = path;
    m_handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!m_handle) {
        TK_LOG(LogError) << "cannot load library " << path << ": " << loaderError();
        return false;
    }
    return true;
}

bool DynamicLibrary::Load(const TString<wchar_t>& path)
{
    return Load(UTF8::ToUTF8(path));
}

void* DynamicLibrary::GetSymbol(const TString<char>& name) const
{
    TString<char> error;
    void* symbol = FindSymbol(name, &error);
    if (!m_handle)
        TK_LOG(LogError) << "cannot look up symbol " << name << ": " << error;
    else if (!symbol)
        TK_LOG(LogError) << "symbol " << name << " not found in " << m_path << ": " << error;
    return symbol;
}

void* DynamicLibrary::GetSymbol(const TString<wchar_t>& name) const
{
    return GetSymbol(UTF8::ToUTF8(name));
}

void* DynamicLibrary::FindSymbol(const TString<char>& name, TString<char>* error) const
{
    if (!m_handle) {
        if (error)
            *error = "no library loaded";
        return nullptr;
    }
    ::dlerror(); // clear an older error, so the one below is this lookup's
    void* symbol = ::dlsym(m_handle, name.c_str());
    if (!symbol && error)
        *error = loaderError();
    return symbol;
}

void* DynamicLibrary::OpenContaining(const void* address)
{
    Dl_info info{};
    if (!address || !::dladdr(address, &info) || !info.dli_fname || !*info.dli_fname)
        return nullptr;
    // RTLD_NOLOAD only counts one more reference to a library already there.
    return ::dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
}

bool DynamicLibrary::Unload()
{
    return closeHandle(std::exchange(m_handle, nullptr), m_path);
}

bool DynamicLibrary::Unload(void* handle)
{
    return closeHandle(handle, TString<char>());
}

void* DynamicLibrary::Detach()
{
    return std::exchange(m_handle, nullptr);
}

} // namespace Toolkit
