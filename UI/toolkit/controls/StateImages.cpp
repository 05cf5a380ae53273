#include "controls/StateImages.h"

#include "controls/ImageCtrl.h"

namespace UIKit {

ImageCtrl* StateImages::Pick(bool enabled, bool isSelected, bool inside, bool held) const
{
    if (!enabled && disabled)
        return disabled.get();
    if (isSelected && selected)
        return selected.get();
    if (inside) {
        if (held && pressed)
            return pressed.get();
        if (over)
            return over.get();
    }
    return normal.get();
}

} // namespace UIKit
