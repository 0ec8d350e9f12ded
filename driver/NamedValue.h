// One variable of the program by its name. The tables of them lie in Values and in PlayerValues.
#pragma once

#include "driver/Json.h"
#include "program/Velluto.h"

#include <span>
#include <string_view>
#include <type_traits>

namespace velluto::driver {

struct NamedValue {
    std::string_view name;
    Json (*read)(Velluto &program);
    int first = 0; // the index of a table's first element
};

// A number, true or false, or a text of the program.
template <class T>
Json PlainValue(const T &value)
{
    if constexpr (std::is_arithmetic_v<T>) {
        return value;
    } else {
        return ProgramText(value);
    }
}

// The variables of the player and the properties of its device.
[[nodiscard]] std::span<const NamedValue> PlayerValues();

} // namespace velluto::driver
