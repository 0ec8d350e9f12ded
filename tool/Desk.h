// What a command works with: the machine's files, where the answer goes, and the language. Made by main, handed to all commands.
#pragma once

#include "platform/FileStore.h"
#include "tool/Words.h"

#include <ostream>
#include <string_view>

namespace velluto::tool {

struct Desk {
    FileStore &files;
    std::ostream &out;
    std::ostream &errors;
    Speaker speaker;

    // "velluto-tool: PATH: why" on the stream for errors.
    void Complain(std::string_view path, std::string_view why) const;
};

} // namespace velluto::tool
