#include "xml/Padding.h"

namespace UIKit {

Toolkit::smart_ptr<Padding> Padding::_EmptyPadding;

Padding::Padding(int16_t left, int16_t top, int16_t right, int16_t bottom)
    : m_left(left), m_top(top), m_right(right), m_bottom(bottom)
{
}

const Toolkit::smart_ptr<Padding>& Padding::Empty()
{
    if (!_EmptyPadding)
        _EmptyPadding = Toolkit::make_smart<Padding>();
    return _EmptyPadding;
}

} // namespace UIKit
