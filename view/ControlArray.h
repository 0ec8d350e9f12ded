// Controls of one name, told apart by their numbers First to First + Count - 1, as a form declares them.
#pragma once

#include "view/Control.h"

#include <array>
#include <cstddef>
#include <utility>

namespace velluto {

template <class C, int First, int Count>
class ControlArray {
public:
    ControlArray(Form &form, const char *name) : ControlArray(form, name, std::make_index_sequence<Count>()) {}
    // number First to First + Count - 1; std::out_of_range beyond.
    C &operator[](int number) { return controls_.at(static_cast<std::size_t>(number - First)); }
    [[nodiscard]] static constexpr int first() { return First; }
    [[nodiscard]] static constexpr int last() { return First + Count - 1; }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

private:
    template <std::size_t... I>
    ControlArray(Form &form, const char *name, std::index_sequence<I...> /*numbers*/)
        : controls_{C(form, name, First + static_cast<int>(I))...}
    {
    }
    std::array<C, Count> controls_;
};

} // namespace velluto
