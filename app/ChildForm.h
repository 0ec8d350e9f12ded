// The contract that every child window keeps with the frame, once: its load, its count, its command in the menu, what it
// does when it is activated, resized and pressed, and how it goes. The windows of all rooms are ChildForms.
#pragma once

#include "app/Modulo1.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace velluto {

class ChildForm : public Form {
public:
    Modulo1 &app;
    // Takes the window out of where it lives. Set by ShowChild.
    std::function<std::unique_ptr<Form>()> TakeOut;

    void Form_Load() override;
    void Form_Unload() override;
    void Form_Activate() override { RefreshWindowMenu(app); }
    void Form_Resize() final;
    void Form_MouseDown(int button) override { PopUpEditMenu(app, button); }

protected:
    // command is the menu's entry that is off from the window's load to its unload; nullptr for a window without one.
    ChildForm(std::string name, int number, Modulo1 &core, MenuEntry *command) : Form(std::move(name), number), app(core), command_(command)
    {
    }

    // Fills the window and gives it its place; resizes are not followed meanwhile. False where the load stops.
    virtual bool LoadWindow() = 0;
    // Stores what outlives the window.
    virtual void UnloadWindow() = 0;
    // The window, loaded, has another size or state.
    virtual void Resized() {}

    // The window among the children and in the menu.
    void CountIn();
    void CountOut();

private:
    MenuEntry *command_;
};

// Brings up the window that lives at home, made afresh where there is none. It leaves its home when it is unloaded.
template <class Window, class Home, class... Args>
void ShowChild(std::unique_ptr<Home> &home, Args &&...args)
{
    if (home == nullptr) {
        home = std::make_unique<Window>(std::forward<Args>(args)...);
        home->TakeOut = [&home]() -> std::unique_ptr<Form> { return std::move(home); };
    }
    home->app.children.Show(*home);
}

} // namespace velluto
