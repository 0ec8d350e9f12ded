// Setting the stage: MIDI devices, the clock, what the sequencer knows, file faults, what an input receives.
#include "driver/Commands.h"

#include <algorithm>
#include <array>

namespace velluto::driver {

namespace {

enum class Direction { Out, In };

Direction DirectionOf(std::string_view word)
{
    if (word == "out") {
        return Direction::Out;
    }
    if (word == "in") {
        return Direction::In;
    }
    throw BadCommand("a device is out or in: " + std::string(word));
}

struct CodeName {
    std::string_view name;
    int StandinCodes::*code;
    bool ofOutputs;
    bool ofInputs;
};

constexpr std::array<CodeName, 8> kCodes = {{
    {"open", &StandinCodes::open, true, true},
    {"caps", &StandinCodes::caps, true, true},
    {"send", &StandinCodes::send, true, false},
    {"close", &StandinCodes::close, true, true},
    {"connect", &StandinCodes::connect, false, true},
    {"start", &StandinCodes::start, false, true},
    {"stop", &StandinCodes::stop, false, true},
    {"disconnect", &StandinCodes::disconnect, false, true},
}};

// The codes with each "key=N" of the words from `from` on put in.
StandinCodes WithCodes(StandinCodes codes, Direction direction, const Words &words, std::size_t from)
{
    for (std::size_t i = from; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const std::size_t equals = word.find('=');
        const auto *const found = std::ranges::find(kCodes, word.substr(0, equals), &CodeName::name);
        const bool known = found != kCodes.end() && (direction == Direction::Out ? found->ofOutputs : found->ofInputs);
        if (equals == std::string_view::npos || !known) {
            throw BadCommand("no operation of the device: " + std::string(word));
        }
        codes.*(found->code) = ToNumber(word.substr(equals + 1), "the code", 0);
    }
    return codes;
}

Json SetDevice(Session &session, const Words &words)
{
    constexpr std::size_t kFirstCode = 3;
    if (words.size() <= kFirstCode) {
        throw BadCommand("usage: device set out|in NUMBER key=N ...");
    }
    const Direction direction = DirectionOf(words[1]);
    std::vector<StandinDevice> &devices = direction == Direction::Out ? session.midi.outs : session.midi.ins;
    const int number = ToNumber(words[2], "the device", 0, static_cast<int>(devices.size()) - 1);
    StandinCodes &codes = devices[static_cast<std::size_t>(number)].codes;
    codes = WithCodes(codes, direction, words, kFirstCode);
    return Good();
}

Json Device(Session &session, const Words &words)
{
    if (words.front() == "set") {
        return SetDevice(session, words);
    }
    const Direction direction = DirectionOf(words.front());
    StandinDevice device;
    device.name = words[1];
    device.codes = WithCodes({}, direction, words, 2);
    (direction == Direction::Out ? session.midi.outs : session.midi.ins).push_back(device);
    return Good();
}

Json Receive(Session &session, const Words &words)
{
    const int number = ToNumber(words.front(), "the device", 0, static_cast<int>(session.midi.ins.size()) - 1);
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 1; i < words.size(); ++i) {
        bytes.push_back(static_cast<std::uint8_t>(ToByte(words[i])));
    }
    if (!session.midi.Receive(number, bytes)) {
        throw BadCommand("MIDI input " + words.front() + " is not open");
    }
    return Good();
}

// The two-digit or four-digit numbers of a date or a time of day with one separator between them.
std::array<int, 3> ThreeNumbers(const std::string &word, char separator, std::size_t firstDigits)
{
    const std::size_t second = firstDigits + 1;
    const std::size_t third = second + 3;
    const bool shaped = word.size() == third + 2 && word[firstDigits] == separator && word[second + 2] == separator &&
                        std::ranges::count_if(word, [](char c) { return c >= '0' && c <= '9'; }) == static_cast<int>(word.size()) - 2;
    if (!shaped) {
        throw BadCommand("usage: now YYYY-MM-DD HH:MM:SS");
    }
    return {std::stoi(word.substr(0, firstDigits)), std::stoi(word.substr(second, 2)), std::stoi(word.substr(third, 2))};
}

Json Now(Session &session, const Words &words)
{
    const auto [year, month, day] = ThreeNumbers(words[0], '-', 4);
    const auto [hour, minute, second] = ThreeNumbers(words[1], ':', 2);
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    constexpr int kHours = 24;
    constexpr int kSixty = 60;
    if (!date.ok() || hour >= kHours || minute >= kSixty || second >= kSixty) {
        throw BadCommand("no such date or time: " + words[0] + " " + words[1]);
    }
    session.clock.Set(std::chrono::sys_days{date} + std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second});
    return Good();
}

Json Sequencer(Session &session, const Words &words)
{
    const std::string &what = words.front();
    if (what == "define" && words.size() == 3) {
        session.sequencer.songs[session.FullPath(words[1])] = {ToNumber(words[2], "the length", 0), 0, {}};
    } else if (what == "refuse" && words.size() == 4) {
        session.sequencer.songs[session.FullPath(words[1])] = {0, ToNumber(words[2], "the error", 1), InWords(words[3])};
    } else if (what == "rate" && words.size() == 2) {
        session.sequencer.rate = StandinSequencer::Milliseconds{ToNumber(words[1], "the rate", 1)};
    } else {
        throw BadCommand("usage: seq define PATH LENGTH, seq refuse PATH ERROR TEXT or seq rate MS");
    }
    return Good();
}

FileFault::Operation OperationOf(std::string_view word)
{
    const auto *const found = std::ranges::find(FileFault::kNames, word);
    if (found == FileFault::kNames.end()) {
        throw BadCommand("no file operation: " + std::string(word));
    }
    return static_cast<FileFault::Operation>(found - FileFault::kNames.begin());
}

Json Fault(Session &session, const Words &words)
{
    FileFault fault;
    fault.operation = OperationOf(words[0]);
    fault.path = session.FullPath(words[1]);
    fault.number = ToNumber(words[2], "the error", 1);
    fault.times = words.size() > 3 ? ToNumber(words[3], "the count", 1) : 1;
    session.files.faults.push_back(fault);
    return Good();
}

constexpr std::array<Command, 5> kCommands = {{
    {"device", "out|in NAME [key=N ...], or set out|in NUMBER key=N ...", 2, kAnyNumber, Device},
    {"receive", "NUMBER BYTE...", 2, kAnyNumber, Receive},
    {"now", "YYYY-MM-DD HH:MM:SS", 2, 2, Now},
    {"seq", "define PATH LENGTH, refuse PATH ERROR TEXT or rate MS", 2, 4, Sequencer},
    {"fault", "open|read|write|delete|any PATH NUMBER [TIMES]", 3, 4, Fault},
}};

} // namespace

std::span<const Command> StageCommands()
{
    return kCommands;
}

} // namespace velluto::driver
