// Line ends of files that people may have written with any editor. Used by the guide and the notebook.
#pragma once

#include <string>
#include <string_view>

namespace velluto {

// The text with every line end, whichever kind it was, as carriage return and line feed.
[[nodiscard]] std::u32string WithCrLf(std::u32string_view text);

} // namespace velluto
