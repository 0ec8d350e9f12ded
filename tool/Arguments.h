// The command line as one record. Used by main.
#pragma once

#include "app/Language.h"
#include "tool/Records.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::tool {

// What the program ends with.
namespace ExitCode {
inline constexpr int Fine = 0;
inline constexpr int Found = 1; // check: something is wrong; find: nothing is found; list: no file of the instrument
inline constexpr int Usage = 2;
inline constexpr int Unreadable = 3; // a file could not be read, or the answer not be written
} // namespace ExitCode

enum class Command : std::uint8_t { Help, Version, List, Find, Check, Import, Export, Make };

struct Arguments {
    Command command = Command::Help;
    Format format = Format::Plain;
    bool all = false;               // list: places without an item too
    std::string words = {};         // find
    std::string folder = {};        // tables: where the user's are
    std::string instrument = {};    // tables import: which of a list's
    std::vector<std::string> paths; // as they were given; of tables the list, or the folder for plain texts
};

// The language that the command line asks for, if it does.
[[nodiscard]] std::optional<int> LanguageAsked(std::span<const std::string> words);

// The words behind the program's name. Nothing, and a complaint in the language, where they are no command.
[[nodiscard]] std::optional<Arguments> ParseArguments(std::span<const std::string> words, int linguaBase, std::string &complaint);

// What --help prints.
[[nodiscard]] std::string_view HelpText(int linguaBase);

} // namespace velluto::tool
