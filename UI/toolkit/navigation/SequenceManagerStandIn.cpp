// Stand-in for the sequence manager: its slot and an entry point that
// handles nothing.
#include "navigation/SequenceManager.h"

#include "module/SingletonSlot.h"

UIKIT_SINGLETON_SLOT(UIKit::SequenceManager)

namespace UIKit {

bool SequenceManager::DoEvent(int)
{
    return false;
}

} // namespace UIKit
