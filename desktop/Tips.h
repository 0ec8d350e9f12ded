// What the desktop says of a control beyond what the control says itself: tool tips with whole words, and a word where an empty
// field would say nothing. In the language of the run.
#pragma once

#include "view/MenuEntry.h"

#include <QString>

#include <vector>

namespace velluto {

// Stands while the control is there; with what the control's own tip says. Empty for none.
[[nodiscard]] QString TipOf(const Control &control);
// Looked up at the moment at which it is shown, since nobody tells when it changes. Empty for none.
[[nodiscard]] QString LiveTipOf(const Control &control);
[[nodiscard]] bool HasLiveTip(const Control &control); // it may be empty all the same
// Why a grey entry is grey, or what its short words mean. children are the open windows.
[[nodiscard]] QString TipOfEntry(const MenuEntry &entry, const std::vector<Form *> &children);
// What an empty field is for.
[[nodiscard]] QString PlaceholderOf(const Control &control);

// The whole words of a role, 0 to 14.
[[nodiscard]] QString WordsOfRole(int role);

// A title among a menu's entries: it leads nowhere.
[[nodiscard]] bool IsHeading(const MenuEntry &entry);
// The button's bank has the file of the button's own window.
[[nodiscard]] bool IsTied(const Control &control);

} // namespace velluto
