#pragma once
// A shared library opened with dlopen. The object owns the library and
// closes it when destroyed, unless Detach() has handed the native handle to
// another owner, who then closes it with the static Unload(handle).
#include "Toolkit/TString.h"

namespace Toolkit {

class DynamicLibrary {
public:
    DynamicLibrary() = default;
    ~DynamicLibrary();
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;

    // Opens the library (closing any library opened before). False, with a
    // log entry holding the loader's message, when it cannot be opened.
    bool Load(const TString<char>& path);
    bool Load(const TString<wchar_t>& path);
    // The address of an exported symbol; null, logged, when there is none.
    void* GetSymbol(const TString<char>& name) const;
    void* GetSymbol(const TString<wchar_t>& name) const;
    // The same without a log entry, for callers that report a missing
    // symbol in their own words; the loader's message goes to `error`.
    void* FindSymbol(const TString<char>& name, TString<char>* error = nullptr) const;
    // Closes the library; false when none is open or the loader refuses.
    bool Unload();
    // Closes a native handle obtained from Detach().
    static bool Unload(void* handle);

    // A new reference (closed with the static Unload) to the loaded library
    // that holds the address; null when no loaded library holds it.
    static void* OpenContaining(const void* address);

    // Gives up ownership: the library stays loaded after this object goes.
    void* Detach();
    void* GetHandle() const { return m_handle; }
    bool IsLoaded() const { return m_handle != nullptr; }
    const TString<char>& GetPath() const { return m_path; }

private:
    void* m_handle = nullptr;
    TString<char> m_path;
};

} // namespace Toolkit
