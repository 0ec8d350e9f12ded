#include "tool/Desk.h"

namespace velluto::tool {

void Desk::Complain(std::string_view path, std::string_view why) const
{
    errors << "velluto-tool: " << Printable(path) << ": " << why << '\n';
}

} // namespace velluto::tool
