// Entries of a menu tree. The tree is plain data: an entry knows its parent and its children, its shortcut, and the
// handlers that the frame has given it; who may be chosen when is decided by those who write enabled and visible.
#pragma once

#include "view/Control.h"

namespace velluto {

// A caption as the menu tree tells it: a text of the catalogue by its id, a fixed text, or both.
struct MenuCaption {
    int id = 0;                  // Italian id in the catalogue, 0 for none
    std::string_view fixed = {}; // stands behind the catalogue's text
};

struct Shortcut {
    char ctrlKey = 0; // 'N' for Ctrl+N; 0 for none
};

class MenuEntry : public Control {
public:
    // A top-level entry of the menu bar.
    MenuEntry(Form &frame, std::string name, MenuCaption words);
    // An entry under parent; index numbers the entries of a control array.
    MenuEntry(MenuEntry &parent, std::string name, MenuCaption words, Shortcut keys = {}, int index = kNoIndex);

    [[nodiscard]] MenuEntry *parent() const { return parent_; }
    [[nodiscard]] const std::vector<MenuEntry *> &children() const { return children_; }
    [[nodiscard]] MenuEntry &TopLevel();
    [[nodiscard]] bool IsSeparator() const { return separator_; }

    MenuCaption text; // what caption is made from when the frame loads
    Shortcut shortcut;
    Property<bool> checked{*this, Aspect::Checked};
    bool listsWindows = false; // the face adds the open children below the entry's own children
    Handler Click;
    Handler Drop; // run before the entry's children are shown, and before one of them is reached by a shortcut

private:
    MenuEntry *parent_ = nullptr;
    std::vector<MenuEntry *> children_;
    bool separator_ = false;
};

// Drops the entry's top-level menu and chooses the entry. False where it or what leads to it is disabled or hidden;
// a disabled top-level menu does not even drop.
bool ChooseMenu(MenuEntry &entry);

// Runs the handler that computes a menu's state, as when it drops. False where it is disabled or hidden.
bool DropMenu(MenuEntry &menu);

} // namespace velluto
