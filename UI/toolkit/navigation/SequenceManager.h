#pragma once
#include "module/Export.h"
// Stand-in for the sequence manager: only the entry point screens call, so
// that screens build before the navigation engine lands.
#include "module/Singleton.h"

namespace UIKit {

class UIKIT_API SequenceManager : public Singleton<SequenceManager> {
public:
    // Carries out a numbered event; the stand-in knows no events.
    bool DoEvent(int id);
};

} // namespace UIKit
