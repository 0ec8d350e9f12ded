// What stands on a scale: a pointed marker and a line. Used by the player's position bar.
#pragma once

#include "view/Control.h"

namespace velluto {

// A small pointer whose tip is the middle of its lower edge.
class Marker : public Control {
public:
    Marker(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
};

// An upright line; its place has no width.
class Line : public Control {
public:
    Line(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    [[nodiscard]] int X1() const { return place.Get().left; }
    void SetX(int x)
    {
        const Place now = place;
        place = Place{x, now.top, 0, now.height};
    }
};

} // namespace velluto
