// Carrying a window's geometry and state into the fields that the settings keep. Used by every window with a placement: a
// WindowPlacement or a DocRecord.
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

// A window that was never laid out takes its natural outer size, in the upper left corner. A least width below 0 stands
// only in a settings file that no window has written.
template <class Record>
void PlaceFirst(Record &record, Size natural)
{
    if (record.MinWidth <= 0) {
        record.Left = 0;
        record.Top = 0;
        record.Width = NearestIn<decltype(record.Width)>(natural.width);
        record.MinWidth = record.Width;
        record.Height = NearestIn<decltype(record.Height)>(natural.height);
        record.MinHeight = record.Height;
    }
}

template <class Record>
[[nodiscard]] Place PlaceOf(const Record &record)
{
    return {record.Left, record.Top, record.Width, record.Height};
}

template <class Record>
void StorePosition(Record &record, const Form &form)
{
    record.Top = NearestIn<decltype(record.Top)>(form.Top());
    record.Left = NearestIn<decltype(record.Left)>(form.Left());
}

template <class Record>
void StoreSize(Record &record, const Form &form)
{
    record.Width = NearestIn<decltype(record.Width)>(form.Width());
    record.Height = NearestIn<decltype(record.Height)>(form.Height());
}

template <class Record>
void StorePlace(Record &record, const Form &form)
{
    StorePosition(record, form);
    StoreSize(record, form);
}

// A maximised window keeps the State that it had.
template <class Record>
void StoreState(Record &record, const Form &form)
{
    if (form.windowState == WindowState::Normal) {
        record.State = StoredState::Normal;
    } else if (form.windowState == WindowState::Minimised) {
        record.State = StoredState::Minimised;
    }
}

} // namespace velluto
