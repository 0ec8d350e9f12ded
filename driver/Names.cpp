#include "driver/Names.h"

#include "driver/Words.h"
#include "view/Face.h"

#include <algorithm>
#include <array>

namespace velluto::driver {

namespace {

struct ButtonName {
    std::string_view word;
    int button;
};
constexpr std::array<ButtonName, 4> kButtons = {{{"yes", Box::kYes}, {"no", Box::kNo}, {"cancel", Box::kCancel}, {"ok", Box::kOk}}};

} // namespace

Form &FindWindow(Velluto &program, std::string_view name)
{
    if (name == program.app.frame.FullName()) {
        return program.app.frame;
    }
    if (name == kActiveWindow) {
        if (Form *active = program.app.children.Active()) {
            return *active;
        }
        throw BadCommand("no window is active");
    }
    const std::vector<Form *> &children = program.app.children.All();
    const auto found = std::ranges::find_if(children, [name](const Form *form) { return form->FullName() == name; });
    if (found == children.end()) {
        throw BadCommand("no open window " + std::string(name));
    }
    return **found;
}

Control &FindControl(const Form &window, std::string_view name)
{
    const auto found = std::ranges::find_if(window.controls(), [name](const Control *control) { return control->FullName() == name; });
    if (found == window.controls().end()) {
        throw BadCommand(window.FullName() + " has no control " + std::string(name));
    }
    return **found;
}

MenuEntry &FindEntry(Velluto &program, std::string_view name)
{
    return As<MenuEntry>(FindControl(program.app.frame, name), "a menu entry");
}

void RefuseKind(const Control &control, std::string_view kind)
{
    throw BadCommand(control.FullName() + " is not " + std::string(kind));
}

int ButtonOf(std::string_view word)
{
    const auto *const found = std::ranges::find(kButtons, word, &ButtonName::word);
    return found == kButtons.end() ? 0 : found->button;
}

std::string_view WordOfButton(int button)
{
    const auto *const found = std::ranges::find(kButtons, button, &ButtonName::button);
    return found == kButtons.end() ? "" : found->word;
}

} // namespace velluto::driver
