#pragma once
// The definitions behind Singleton<T>. Only the one source file that defines
// a manager's slot includes this header, and names each manager once with
// UIKIT_SINGLETON_SLOT(T); every other file sees the declarations alone and
// links to that one definition.
#include "module/Singleton.h"

namespace UIKit {

template <class T>
Toolkit::smart_ptr<T>* Singleton<T>::s_pInstance = nullptr;
template <class T>
std::mutex Singleton<T>::s_slotLock;
template <class T>
bool Singleton<T>::s_releasing = false;

template <class T>
Toolkit::smart_ptr<T> Singleton<T>::Instance()
{
    std::lock_guard<std::mutex> lock(s_slotLock);
    if (!s_pInstance || s_releasing)
        return {};
    return *s_pInstance;
}

template <class T>
void Singleton<T>::CreateInstance()
{
    {
        std::lock_guard<std::mutex> lock(s_slotLock);
        if (s_pInstance)
            return;
    }
    // Built outside the lock: a constructor may reach other managers.
    auto* made = new Toolkit::smart_ptr<T>(new T());
    std::lock_guard<std::mutex> lock(s_slotLock);
    if (s_pInstance) {
        made->ReleaseRef();
        delete made;
        return;
    }
    s_pInstance = made;
}

template <class T>
void Singleton<T>::ReleaseInstance()
{
    Toolkit::smart_ptr<T>* held = nullptr;
    {
        std::lock_guard<std::mutex> lock(s_slotLock);
        if (!s_pInstance || s_releasing)
            return;
        s_releasing = true;
        held = s_pInstance;
    }
    // No new copy can be taken from here on, so dropping the held reference
    // destroys the manager unless an older copy is still in use.
    held->ReleaseRef();
    delete held;
    std::lock_guard<std::mutex> lock(s_slotLock);
    s_pInstance = nullptr;
    s_releasing = false;
}

} // namespace UIKit

// Defines the slot of manager T in this shared object and exports it.
#define UIKIT_SINGLETON_SLOT(T) template class UIKit::Singleton<T>;
