#pragma once
// How a screen enters: not at all animated, or sliding in one direction.
// The values match the slide motions of the animation helpers.

namespace UIKit {

enum Animation : int {
    AnimationNone = 0,
    AnimationSlideLeft = 3,
    AnimationSlideRight = 4,
    AnimationSlideDown = 5,
    AnimationSlideUp = 6,
};

} // namespace UIKit
