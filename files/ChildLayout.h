// What the child windows of the file room do alike with their size.
#pragma once

#include "app/Modulo1.h"

namespace velluto {

// The inside of a child window, twips; a maximised one fills the frame's workspace.
[[nodiscard]] Size InnerSize(const Modulo1 &app, const Form &window);
// Keeps a normal window no smaller than that, its outer size in twips; not to be taken for a second resize.
void KeepNoSmaller(Modulo1 &app, Form &window, Size least);

// Columns of one width side by side, in the middle of what there is room for. Twips.
struct ButtonColumns {
    int left = 0; // of the first column
    int width = 0;
    int gap = 0;
    [[nodiscard]] int LeftOf(int column) const { return left + column * (width + gap); }
};
// Columns as wide as the room allows, but no wider than widest.
[[nodiscard]] ButtonColumns ColumnsIn(int room, int count, int widest, int gap);

} // namespace velluto
