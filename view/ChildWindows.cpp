#include "view/ChildWindows.h"

#include <algorithm>
#include <cmath>

namespace velluto {

namespace {

constexpr int kCascadeStep = 420; // twips: a title bar and its border

} // namespace

bool ChildWindows::IsOpen(const Form &form) const
{
    return std::ranges::find(byOpening_, &form) != byOpening_.end();
}

void ChildWindows::Show(Form &form)
{
    if (IsOpen(form)) {
        if (form.windowState == WindowState::Minimised) {
            Restore(form);
        }
        Activate(form);
        return;
    }
    form.frame = face_.ChildFrame();
    form.Load();
    byOpening_.push_back(&form);
    byUse_.insert(byUse_.begin(), &form);
    face_.ChildShown(form);
    form.Form_Resize();
    if (byUse_.size() == 1) {
        face_.ChildActivated(&form);
        form.Form_Activate();
    } else {
        Activate(form);
    }
}

void ChildWindows::Activate(Form &form)
{
    if (!IsOpen(form) || Active() == &form) {
        return;
    }
    Form *before = Active();
    std::erase(byUse_, &form);
    byUse_.push_back(&form);
    before->Form_Deactivate();
    before->Form_LostFocus();
    face_.ChildActivated(&form);
    form.Form_Activate();
}

bool ChildWindows::Unload(Form &form)
{
    if (!IsOpen(form)) {
        return true;
    }
    // The window that is asked about comes to the front: its answers act on the active child.
    Activate(form);
    if (!form.Form_QueryUnload()) {
        return false;
    }
    Finish(form);
    if (Form *next = Active()) {
        face_.ChildActivated(next);
        next->Form_Activate();
    } else {
        face_.ChildActivated(nullptr);
    }
    return true;
}

bool ChildWindows::UnloadAll()
{
    const std::vector<Form *> asked = byOpening_;
    for (Form *form : asked) {
        Activate(*form);
        if (!form->Form_QueryUnload()) {
            return false;
        }
    }
    while (Form *form = Active()) {
        Finish(*form);
    }
    face_.ChildActivated(nullptr);
    return true;
}

void ChildWindows::Finish(Form &form)
{
    form.Unload();
    std::erase(byOpening_, &form);
    std::erase(byUse_, &form);
    face_.ChildClosed(form);
}

void ChildWindows::Minimise(Form &form)
{
    form.windowState = WindowState::Minimised;
}

void ChildWindows::Restore(Form &form)
{
    form.windowState = WindowState::Normal;
}

void ChildWindows::Maximise(Form &form)
{
    form.windowState = WindowState::Maximised;
}

void ChildWindows::Move(Form &form, int left, int top)
{
    form.place = Place{left, top, form.Width(), form.Height()};
}

void ChildWindows::Resize(Form &form, int width, int height)
{
    form.place = Place{form.Left(), form.Top(), width, height};
}

void ChildWindows::Arrange(int order)
{
    std::vector<Form *> shown;
    for (Form *form : byUse_) {
        if (form->windowState != WindowState::Minimised) {
            shown.push_back(form);
        }
    }
    if (shown.empty()) {
        return;
    }
    const Size space = face_.Workspace();
    const int count = static_cast<int>(shown.size());
    // Tiled horizontally the windows lie in more rows than columns, vertically the other way round.
    const int fewer = static_cast<int>(std::sqrt(static_cast<double>(count)));
    const int lines = order == 1 ? fewer : (count + fewer - 1) / fewer;
    int next = 0;
    for (int column = 0; column < lines && order != 0; ++column) {
        const int inColumn = (count - next) / (lines - column);
        for (int row = 0; row < inColumn; ++row, ++next) {
            const Size size{space.width / lines, space.height / inColumn};
            shown[static_cast<std::size_t>(next)]->windowState = WindowState::Normal;
            shown[static_cast<std::size_t>(next)]->place = Place{column * size.width, row * size.height, size.width, size.height};
        }
    }
    for (; next < count; ++next) {
        Form &form = *shown[static_cast<std::size_t>(next)];
        form.windowState = WindowState::Normal;
        form.place = Place{next * kCascadeStep, next * kCascadeStep, form.Width(), form.Height()};
    }
}

void ChildWindows::FrameDeactivated()
{
    if (Form *active = Active()) {
        active->Form_LostFocus();
    }
}

void ChildWindows::Bury(std::unique_ptr<Form> form)
{
    buried_.push_back(std::move(form));
}

} // namespace velluto
