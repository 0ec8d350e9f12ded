// Carrying a window's geometry and state into the fields that the settings keep. Used by every window with a placement.
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

// A maximised window keeps the State that it had.
inline void StoreState(WindowPlacement &placement, const Form &form)
{
    if (form.windowState == WindowState::Normal) {
        placement.State = StoredState::Normal;
    } else if (form.windowState == WindowState::Minimised) {
        placement.State = StoredState::Minimised;
    }
}

} // namespace velluto
