#include "files/ChildLayout.h"

#include "view/Raised.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kTwipsPerPixel = 15; // at 96 dots an inch: whole pixels there, so that equal widths look equal

} // namespace

Size InnerSize(const Modulo1 &app, const Form &window)
{
    const bool maximised = window.windowState == WindowState::Maximised;
    const Size inner = maximised ? app.face.Workspace() : Size{window.ScaleWidth(), window.ScaleHeight()};
    return {std::max(inner.width, 0), std::max(inner.height, 0)};
}

void KeepNoSmaller(Modulo1 &app, Form &window, Size least)
{
    const Raised restoring(app.children.RestoringLayout);
    const int width = std::max({window.Width(), least.width, window.frame.width});
    const int height = std::max({window.Height(), least.height, window.frame.height});
    window.place = Place{window.Left(), window.Top(), width, height};
}

ButtonColumns ColumnsIn(int room, int count, int widest, int gap)
{
    const int gaps = (count - 1) * gap;
    const int share = (room - gaps) / count / kTwipsPerPixel * kTwipsPerPixel;
    const int width = std::clamp(share, 0, widest);
    return {(room - gaps - count * width) / 2, width, gap};
}

} // namespace velluto
