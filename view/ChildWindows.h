// The children of the frame: which are open, in which order, which one is active, and how they come and go. The rules
// of events live here once, for the desktop and the driver alike; a face only calls in what the user did.
#pragma once

#include "view/Face.h"

#include <memory>
#include <vector>

namespace velluto {

class ChildWindows {
public:
    explicit ChildWindows(Face &face) : face_(face) {}

    int ChildCount = 0;           // raised by each child at the end of its load, lowered at its unload
    bool RestoringLayout = false; // true during a load: resize handlers do nothing
    bool ClosingAll = false;      // the frame is being closed

    // Shows a window: a form that is not open is loaded first (Form_Load, then Form_Resize), one that is open is
    // restored if it is minimised. It becomes the active child.
    void Show(Form &form);
    void Activate(Form &form);
    // Asks the form, unloads it, and activates the child that was active before it. False if the form refused.
    bool Unload(Form &form);
    // Asks every child in the order of their opening and, when none refused, unloads them all.
    bool UnloadAll();

    void Minimise(Form &form);
    void Restore(Form &form);
    void Maximise(Form &form);
    // What the user did with the mouse: raises Form_Resize where the size changed.
    void Move(Form &form, int left, int top);
    void Resize(Form &form, int width, int height);
    // 0 cascade, 1 tile horizontally, 2 tile vertically.
    void Arrange(int order);
    // The frame lost or got the focus of the machine's screen.
    void FrameDeactivated();

    [[nodiscard]] Form *Active() const { return byUse_.empty() ? nullptr : byUse_.back(); }
    [[nodiscard]] const std::vector<Form *> &All() const { return byOpening_; }
    [[nodiscard]] bool IsOpen(const Form &form) const;

    // Keeps an unloaded form alive until Sweep, since one of its handlers may still be running.
    void Bury(std::unique_ptr<Form> form);
    // Called by a face between two events.
    void Sweep() { buried_.clear(); }

private:
    void Finish(Form &form);

    Face &face_;
    std::vector<Form *> byOpening_;
    std::vector<Form *> byUse_; // the active child is the last
    std::vector<std::unique_ptr<Form>> buried_;
};

} // namespace velluto
