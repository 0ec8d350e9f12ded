// The driver's commands: one table of names, and a handler for each; main and the scenario runner feed it lines. The handlers lie in five
// files: setting the stage, running, using the program as a person would, handling its windows, and looking.
#pragma once

#include "driver/Json.h"
#include "driver/Session.h"
#include "driver/Words.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velluto::driver {

struct Command {
    std::string_view name;
    std::string_view usage; // what follows the name
    int least = 0;          // words behind the name
    int most = 0;
    // words: those behind the name, from least to most of them. Throws BadCommand.
    Json (*run)(Session &session, const Words &words) = nullptr;
};

inline constexpr int kAnyNumber = 1 << 20;

// The user closes the frame: the command "exit", and what "close" is for the frame.
[[nodiscard]] Json Exit(Session &session, const Words &words);

[[nodiscard]] std::span<const Command> StageCommands();
[[nodiscard]] std::span<const Command> RunningCommands();
[[nodiscard]] std::span<const Command> UsingCommands();
[[nodiscard]] std::span<const Command> WindowCommands();
[[nodiscard]] std::span<const Command> LookingCommands();

// Carries out a line of input; every failure is an answer too.
[[nodiscard]] Json Run(Session &session, std::string_view line);
// The same as a line of text. Nothing to say for a blank line or a remark.
[[nodiscard]] std::optional<std::string> Answer(Session &session, std::string_view line);

} // namespace velluto::driver
