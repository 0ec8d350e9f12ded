#include "driver/Running.h"

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

Json ExitProgram(Session &session)
{
    (void)CloseFrame(session.Program());
    Json told = Good();
    told["running"] = session.Running();
    return told;
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

bool IsFrame(const Session &session, const Form &window)
{
    return &window == session.face.frame;
}

} // namespace velluto::driver
