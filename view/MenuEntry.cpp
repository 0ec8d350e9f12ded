#include "view/MenuEntry.h"

namespace velluto {

namespace {

bool Offered(const MenuEntry &entry)
{
    for (const MenuEntry *at = &entry; at != nullptr; at = at->parent()) {
        if (!at->enabled || !at->visible) {
            return false;
        }
    }
    return true;
}

} // namespace

MenuEntry::MenuEntry(Form &frame, std::string name, MenuCaption words) : Control(frame, std::move(name), kNoIndex), text(words) {}

MenuEntry::MenuEntry(MenuEntry &parent, std::string name, MenuCaption words, Shortcut keys, int index)
    : Control(parent.form(), std::move(name), index), text(words), shortcut(keys), parent_(&parent)
{
    parent.children_.push_back(this);
    separator_ = this->name().starts_with("mnuSep") || this->name().starts_with("mnusep");
}

MenuEntry &MenuEntry::TopLevel()
{
    MenuEntry *at = this;
    while (at->parent_ != nullptr) {
        at = at->parent_;
    }
    return *at;
}

bool DropMenu(MenuEntry &menu)
{
    if (!Offered(menu)) {
        return false;
    }
    Raise(menu.Drop);
    return true;
}

bool ChooseMenu(MenuEntry &entry)
{
    MenuEntry &top = entry.TopLevel();
    if (&top != &entry && !DropMenu(top)) {
        return false;
    }
    if (entry.IsSeparator() || !Offered(entry)) {
        return false;
    }
    Raise(entry.Click);
    return true;
}

} // namespace velluto
