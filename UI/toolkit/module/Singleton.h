#pragma once
// The slot of a process-wide manager: T::s_pInstance points to a heap-held
// smart pointer while the manager exists and is null otherwise. Module
// initialisation fills the slot and module release empties it; users take a
// counted copy for as long as they use the manager.
#include "Toolkit/smart_ptr.h"

namespace UIKit {

template <class T>
class Singleton {
public:
    static inline Toolkit::smart_ptr<T>* s_pInstance = nullptr;

    // A counted copy of the manager, or null when it does not exist.
    static Toolkit::smart_ptr<T> Instance()
    {
        return s_pInstance ? *s_pInstance : Toolkit::smart_ptr<T>();
    }

    // Makes the manager when it does not exist yet; an existing one is kept.
    static void CreateInstance()
    {
        if (s_pInstance)
            return;
        Toolkit::smart_ptr<T> made(new T());
        s_pInstance = new Toolkit::smart_ptr<T>(std::move(made));
    }

    // Drops the held reference and empties the slot. Outside copies keep
    // the manager alive until they go.
    static void ReleaseInstance()
    {
        if (!s_pInstance)
            return;
        auto* held = s_pInstance;
        s_pInstance = nullptr;
        held->ReleaseRef();
        delete held;
    }

protected:
    Singleton() = default;
};

} // namespace UIKit
