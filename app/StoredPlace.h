// Carrying a window's geometry into the 16-bit fields that the settings keep. Used by every window with a placement.
#pragma once

#include "app/Settings.h"
#include "view/Form.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velluto {

// The nearest value that a field of type Field can hold.
template <class Field>
[[nodiscard]] Field NearestIn(int value)
{
    constexpr int kLow = std::numeric_limits<Field>::min();
    constexpr int kHigh = std::numeric_limits<Field>::max();
    return static_cast<Field>(std::clamp(value, kLow, kHigh));
}

inline void StorePosition(WindowPlacement &placement, const Form &form)
{
    placement.Top = NearestIn<std::int16_t>(form.Top());
    placement.Left = NearestIn<std::int16_t>(form.Left());
}

inline void StoreSize(WindowPlacement &placement, const Form &form)
{
    placement.Width = NearestIn<std::uint16_t>(form.Width());
    placement.Height = NearestIn<std::uint16_t>(form.Height());
}

} // namespace velluto
