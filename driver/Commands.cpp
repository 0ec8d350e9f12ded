#include "driver/Commands.h"

#include <algorithm>
#include <exception>

namespace velluto::driver {

namespace {

const Command *FindCommand(std::string_view name)
{
    for (const std::span<const Command> group :
         {StageCommands(), RunningCommands(), UsingCommands(), WindowCommands(), LookingCommands()}) {
        const auto found = std::ranges::find(group, name, &Command::name);
        if (found != group.end()) {
            return &*found;
        }
    }
    return nullptr;
}

// Finds the command by its first word and runs it. Throws BadCommand.
Json RunCommand(Session &session, Words words)
{
    if (words.empty()) {
        throw BadCommand("no command");
    }
    const std::string name = words.front();
    const Command *command = FindCommand(name);
    if (command == nullptr) {
        throw BadCommand("unknown command " + name);
    }
    words.erase(words.begin());
    const auto count = static_cast<int>(words.size());
    if (count < command->least || count > command->most) {
        throw BadCommand("usage: " + name + (command->usage.empty() ? "" : " ") + std::string(command->usage));
    }
    return command->run(session, words);
}

} // namespace

Json Run(Session &session, std::string_view line)
{
    session.ForgetCalls();
    try {
        Json answer = RunCommand(session, SplitWords(line));
        session.Settle();
        return answer;
    } catch (const BadCommand &bad) {
        return Bad(bad.what());
    } catch (const std::exception &failure) {
        return Bad(std::string("the program failed: ") + failure.what());
    }
}

std::optional<std::string> Answer(Session &session, std::string_view line)
{
    if (IsRemark(line)) {
        return std::nullopt;
    }
    return OneLine(Run(session, line));
}

} // namespace velluto::driver
