#pragma once
#include "module/Export.h"
// Given to the state that becomes visible again when the sequence above it
// is left: the slide with which its screen should come back.
#include "frames/Animation.h"
#include "navigation/IStateParameter.h"

namespace UIKit {

class UIKIT_API PreviousSequenceParameter : public IStateParameter {
public:
    explicit PreviousSequenceParameter(Animation animation) : m_animation(animation) {}
    Animation GetAnimation() const { return m_animation; }

private:
    Animation m_animation;
};

} // namespace UIKit
