#include "files/ErrorTrap.h"

namespace velluto {

bool RefusedAsTooLong(const Modulo1 &app, std::string_view path, std::string_view title)
{
    if (PathText::Fits(path)) {
        return false;
    }
    app.messages.ShowMessage(MessageNo::PathNotFound, title, {});
    return true;
}

} // namespace velluto
