#pragma once
#include "module/Export.h"
// Four signed 16-bit distances around a content box, read from skin values
// such as margin="4,2,4,2" (left, top, right, bottom).
#include "Toolkit/smart_ptr.h"

#include <cstdint>

namespace UIKit {

class UIKIT_API Padding {
public:
    Padding() = default;
    Padding(int16_t left, int16_t top, int16_t right, int16_t bottom);
    virtual ~Padding() = default;

    int16_t GetLeft() const { return m_left; }
    int16_t GetTop() const { return m_top; }
    int16_t GetRight() const { return m_right; }
    int16_t GetBottom() const { return m_bottom; }

    // The all-zero padding shared by every value that has none; made on
    // first use (user-interface thread only).
    static const Toolkit::smart_ptr<Padding>& Empty();
    static Toolkit::smart_ptr<Padding> _EmptyPadding;

private:
    int16_t m_left = 0;
    int16_t m_top = 0;
    int16_t m_right = 0;
    int16_t m_bottom = 0;
};

} // namespace UIKit
