// A window without pixels: its controls by name, its place in twips, its state text and its events. Every window of
// the program derives from it; the faces draw it, and the driver speaks to it by name. Controls lie above it: a form only
// knows that they are there.
#pragma once

#include "view/Geometry.h"
#include "view/Property.h"
#include "view/Tag.h"

#include <string>
#include <vector>

namespace velluto {

class Control;

class Form : public PropertyOwner {
public:
    static constexpr int kNoNumber = -1;

    // number tells apart the windows of one form: its slot or its kind; kNoNumber where there is only one.
    explicit Form(std::string name, int number = kNoNumber) : name_(std::move(name)), number_(number) {}
    virtual ~Form() = default;
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    [[nodiscard]] const std::string &name() const { return name_; }
    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] std::string FullName() const; // "frmPcgUN(3)" or "frmMsgEx"

    Property<std::string> caption{*this, Aspect::Caption};
    // The outer rectangle of the window in normal state; a minimised or maximised window keeps it.
    Property<Place> place{*this, Aspect::Place};
    Property<WindowState> windowState{*this, Aspect::State, WindowState::Normal};
    WindowTag Tag;

    [[nodiscard]] int Left() const { return place.Get().left; }
    [[nodiscard]] int Top() const { return place.Get().top; }
    [[nodiscard]] int Width() const { return place.Get().width; }
    [[nodiscard]] int Height() const { return place.Get().height; }

    // Inner size: the outer size less the window's frame. The face sets frame before the form loads, and maximisedInside
    // while it draws the form maximised, where place tells of the normal window only.
    Size frame;
    Size maximisedInside;
    [[nodiscard]] int ScaleWidth() const { return FillsFrame() ? maximisedInside.width : Width() - frame.width; }
    [[nodiscard]] int ScaleHeight() const { return FillsFrame() ? maximisedInside.height : Height() - frame.height; }

    [[nodiscard]] const std::vector<Control *> &controls() const { return controls_; }

    // Events. A write to place that changes the size, or to windowState, raises Form_Resize once the form is loaded.
    virtual void Form_Load() {}
    virtual bool Form_QueryUnload() { return true; } // false refuses
    virtual void Form_Unload() {}
    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_LostFocus() {}
    virtual void Form_Resize() {}
    virtual void Form_MouseDown(int /*button*/) {}
    virtual void Form_MouseMove() {} // over the form itself, not over its controls

    void Changed(Aspect aspect) override;
    // Runs Form_Load if the form is not loaded.
    void Load();
    // Runs Form_Unload if the form is loaded.
    void Unload();
    [[nodiscard]] bool IsLoaded() const { return loaded_; }

private:
    friend class Control;
    [[nodiscard]] bool FillsFrame() const { return windowState == WindowState::Maximised && maximisedInside != Size{}; }
    std::string name_;
    int number_;
    std::vector<Control *> controls_;
    bool loaded_ = false;
    Size knownSize_;
};

} // namespace velluto
