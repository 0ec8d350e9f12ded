// Where Windows keeps what: the program itself, and what belongs to its user. Used by the desktop's start and the tool.
#pragma once

#include <string>

namespace velluto {

// Where the program lies, in UTF-8, without a separator at the end; empty where the system does not say.
[[nodiscard]] std::string ProgramFolder();

// Where the user's files are: in the folder for programs' own files that goes along with the user, or, where the program was unpacked
// and a file beside it says so, beside the program. Empty where the program stands alone, without what ships with it, as where it was
// built: its files are then where it is started. The folder need not be there yet.
[[nodiscard]] std::string UserFolder();

} // namespace velluto
