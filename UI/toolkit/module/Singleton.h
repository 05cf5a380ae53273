#pragma once
// The slot of a process-wide manager: T::s_pInstance points to a heap-held
// smart pointer while the manager exists and is null otherwise. Module
// initialisation fills the slot and module release empties it; users take a
// counted copy for as long as they use the manager.
//
// The slot and its operations are defined once, in the shared object that
// owns the manager (see SingletonSlot.h), and exported: the host and every
// plug-in loaded later read the same slot, never a private copy of it.
//
// Instance() may run on any thread, also while the slot is being released:
// it gives the live manager or null, never one that is being destroyed.
#include "Toolkit/smart_ptr.h"
#include "module/Export.h"

#include <mutex>

namespace UIKit {

template <class T>
class UIKIT_API Singleton {
public:
    static Toolkit::smart_ptr<T>* s_pInstance;

    // A counted copy of the manager, or null when it does not exist or is
    // being released.
    static Toolkit::smart_ptr<T> Instance();

    // Makes the manager when it does not exist yet; an existing one is kept.
    static void CreateInstance();

    // Drops the held reference first (the manager is destroyed now unless
    // someone holds a copy), then frees the heap cell and empties the slot.
    static void ReleaseInstance();

protected:
    Singleton() = default;

private:
    // Guards reading and changing the slot; never held while a manager is
    // built or destroyed, so a destructor that joins a thread still calling
    // Instance() cannot deadlock.
    static std::mutex s_slotLock;
    // Set while the held reference is being dropped: Instance() answers null.
    static bool s_releasing;
};

} // namespace UIKit
