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
    ControlArray(Form &form, const char *name) : ControlArray([&](int number) { return C(form, name, number); }) {}
    // number First to First + Count - 1; std::out_of_range beyond.
    C &operator[](int number) { return controls_.at(static_cast<std::size_t>(number - First)); }
    [[nodiscard]] static constexpr int first() { return First; }
    [[nodiscard]] static constexpr int last() { return First + Count - 1; }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

protected:
    // make gives the control of each number.
    template <class Make>
    explicit ControlArray(Make make) : ControlArray(make, std::make_index_sequence<Count>())
    {
    }

private:
    template <class Make, std::size_t... I>
    ControlArray(Make make, std::index_sequence<I...> /*numbers*/) : controls_{make(First + static_cast<int>(I))...}
    {
    }
    std::array<C, Count> controls_;
};

} // namespace velluto
