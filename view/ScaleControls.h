// What stands on a scale: a pointed marker and a line. Used by the player's position bar.
#pragma once

#include "view/Control.h"

namespace velluto {

// Half a pointer whose tip is the middle of its lower edge: the left half begins a section of the scale, the right half ends it,
// so that two of them at one place do not cover each other.
class Marker : public Control {
public:
    Marker(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    bool endsSection = false;
    ScrollBar *slider = nullptr; // what a hand on the marker draws along
    int travel = 0;              // twips from the slider's min to its max
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
