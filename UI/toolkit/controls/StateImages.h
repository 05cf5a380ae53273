#pragma once
#include "module/Export.h"
// The images a panel or a button shows, one per state, and the one rule
// that picks the image for the control's state. A state without an image
// of its own falls through to the next rule.
#include "Toolkit/smart_ptr.h"

namespace UIKit {

class ImageCtrl;

struct UIKIT_API StateImages {
    Toolkit::smart_ptr<ImageCtrl> normal;
    Toolkit::smart_ptr<ImageCtrl> disabled;
    Toolkit::smart_ptr<ImageCtrl> selected;
    Toolkit::smart_ptr<ImageCtrl> over;
    Toolkit::smart_ptr<ImageCtrl> pressed;

    // Disabled, then selected, then with the pointer inside pressed (while
    // held) or over, else normal; null when that is missing too.
    ImageCtrl* Pick(bool enabled, bool isSelected, bool inside, bool held) const;
};

} // namespace UIKit
