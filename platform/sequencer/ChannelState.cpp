#include "platform/sequencer/ChannelState.h"

#include <algorithm>

namespace velluto {

namespace {

namespace Controller = MidiController;
namespace Status = MidiStatus;

constexpr std::int16_t kUnset = ChannelState::kUnset;
constexpr std::int16_t kNoParameter = 127; // both numbers: data entries go nowhere
constexpr std::int16_t kBendAtRest = 0x2000;

struct RestingController {
    std::uint8_t number;
    std::int16_t value;
};

// What "reset all controllers" sets; bend and pressure go back too.
constexpr std::array<RestingController, 6> kResting = {{{Controller::kModulation, 0},
                                                        {Controller::kExpression, 127},
                                                        {Controller::kSustain, 0},
                                                        {Controller::kPortamento, 0},
                                                        {Controller::kSostenuto, 0},
                                                        {Controller::kSoft, 0}}};

constexpr std::array<std::uint8_t, 3> kHoldingPedals = {Controller::kSustain, Controller::kSostenuto, Controller::kHold2};

bool IsSame(const ChannelState::Parameter &a, const ChannelState::Parameter &b)
{
    return a.registered == b.registered && a.numberMsb == b.numberMsb && a.numberLsb == b.numberLsb;
}

ChannelState::Parameter *Find(std::vector<ChannelState::Parameter> &parameters, const ChannelState::Parameter &wanted)
{
    const auto found = std::ranges::find_if(parameters, [&](const auto &parameter) { return IsSame(parameter, wanted); });
    return found == parameters.end() ? nullptr : &*found;
}

void EnterData(ChannelState &channel, std::int16_t ChannelState::Parameter::*part, std::int16_t value)
{
    const ChannelState::Parameter &chosen = channel.chosen;
    if (chosen.numberMsb == kUnset || chosen.numberLsb == kUnset ||
        (chosen.numberMsb == kNoParameter && chosen.numberLsb == kNoParameter)) {
        return;
    }
    ChannelState::Parameter *parameter = Find(channel.parameters, chosen);
    if (parameter == nullptr) {
        parameter = &channel.parameters.emplace_back(chosen);
    }
    parameter->*part = value;
}

void Choose(ChannelState &channel, bool registered, std::int16_t ChannelState::Parameter::*part, std::int16_t number)
{
    if (channel.chosen.registered != registered) {
        channel.chosen = {};
        channel.chosen.registered = registered;
    }
    channel.chosen.*part = number;
}

void ResetAll(ChannelState &channel)
{
    for (const RestingController &resting : kResting) {
        channel.controllers.at(resting.number) = resting.value;
    }
    channel.chosen = {true, kNoParameter, kNoParameter, kUnset, kUnset};
    channel.bend = kBendAtRest;
    channel.pressure = 0;
}

void NoteController(ChannelState &channel, std::uint8_t number, std::int16_t value)
{
    using Parameter = ChannelState::Parameter;
    switch (number) {
    case Controller::kDataMsb:
        EnterData(channel, &Parameter::dataMsb, value);
        break;
    case Controller::kDataLsb:
        EnterData(channel, &Parameter::dataLsb, value);
        break;
    case Controller::kDataIncrement: // a step from a value that nobody knows
    case Controller::kDataDecrement:
        break;
    case Controller::kOtherLsb:
    case Controller::kRegisteredLsb:
        Choose(channel, number == Controller::kRegisteredLsb, &Parameter::numberLsb, value);
        break;
    case Controller::kOtherMsb:
    case Controller::kRegisteredMsb:
        Choose(channel, number == Controller::kRegisteredMsb, &Parameter::numberMsb, value);
        break;
    case Controller::kResetAll:
        ResetAll(channel);
        break;
    default:
        if (number < ChannelState::kControllers) {
            channel.controllers.at(number) = value;
        } else if (number == Controller::kAllSoundOff || number >= Controller::kAllNotesOff) {
            channel.sounding.reset();
        }
    }
}

// Gathers the messages for one channel.
class Writer {
public:
    Writer(std::vector<ShortMessage> &messages, std::size_t channel) : messages_(messages), channel_(static_cast<int>(channel)) {}

    void Write(std::uint8_t status, int data1, int data2 = 0) { messages_.emplace_back(status, channel_, data1, data2); }
    void Control(std::uint8_t number, std::int16_t value) { Write(Status::kControlChange, number, value); }
    void SetController(std::uint8_t number, std::int16_t value)
    {
        if (value != kUnset) {
            Control(number, value);
        }
    }
    void Choose(const ChannelState::Parameter &parameter)
    {
        SetController(parameter.registered ? Controller::kRegisteredMsb : Controller::kOtherMsb, parameter.numberMsb);
        SetController(parameter.registered ? Controller::kRegisteredLsb : Controller::kOtherLsb, parameter.numberLsb);
    }

private:
    std::vector<ShortMessage> &messages_;
    int channel_;
};

// Which of two states of a value is to be sent: the wanted one where it is set and not there yet.
struct Difference {
    bool whole;
    [[nodiscard]] bool Wants(std::int16_t wanted, std::int16_t told) const { return wanted != kUnset && (whole || wanted != told); }
};

void RestoreProgram(Writer &writer, const ChannelState &wanted, const ChannelState &told, Difference differs)
{
    std::int16_t msb = told.controllers[Controller::kBankMsb]; // as the instrument has it by now
    std::int16_t lsb = told.controllers[Controller::kBankLsb];
    const auto selectBank = [&](std::int16_t wantedMsb, std::int16_t wantedLsb, Difference differ) {
        if (differ.Wants(wantedMsb, msb) || differ.Wants(wantedLsb, lsb)) {
            writer.SetController(Controller::kBankMsb, msb = wantedMsb);
            writer.SetController(Controller::kBankLsb, lsb = wantedLsb);
        }
    };
    if (differs.Wants(wanted.program, told.program) || differs.Wants(wanted.programMsb, told.programMsb) ||
        differs.Wants(wanted.programLsb, told.programLsb)) {
        selectBank(wanted.programMsb, wanted.programLsb, {true});
        writer.Write(Status::kProgramChange, wanted.program);
        differs.whole = false;
    }
    selectBank(wanted.controllers[Controller::kBankMsb], wanted.controllers[Controller::kBankLsb], differs);
}

std::int16_t WantedController(const ChannelState &wanted, const ChannelState &told, std::uint8_t number)
{
    const std::int16_t value = wanted.controllers.at(number);
    if (value != kUnset || told.controllers.at(number) == kUnset) {
        return value;
    }
    const auto *const resting = std::ranges::find(kResting, number, &RestingController::number);
    return resting == kResting.end() || resting->value == told.controllers.at(number) ? kUnset : resting->value;
}

void RestoreControllers(Writer &writer, const ChannelState &wanted, const ChannelState &told, Difference differs)
{
    for (std::uint8_t number = 0; number < ChannelState::kControllers; ++number) {
        if (number == Controller::kBankMsb || number == Controller::kBankLsb) {
            continue;
        }
        const std::int16_t value = WantedController(wanted, told, number);
        if (differs.Wants(value, told.controllers.at(number))) {
            writer.Control(number, value);
        }
    }
}

void RestoreParameters(Writer &writer, const ChannelState &wanted, const ChannelState &told, Difference differs)
{
    bool chosenMoved = false;
    for (const ChannelState::Parameter &parameter : wanted.parameters) {
        const auto known = std::ranges::find_if(told.parameters, [&](const auto &other) { return IsSame(other, parameter); });
        const ChannelState::Parameter nothing;
        const ChannelState::Parameter &before = known == told.parameters.end() ? nothing : *known;
        if (differs.Wants(parameter.dataMsb, before.dataMsb) || differs.Wants(parameter.dataLsb, before.dataLsb)) {
            writer.Choose(parameter);
            writer.SetController(Controller::kDataMsb, parameter.dataMsb);
            writer.SetController(Controller::kDataLsb, parameter.dataLsb);
            chosenMoved = true;
        }
    }
    if (chosenMoved || !IsSame(wanted.chosen, told.chosen) || differs.whole) {
        writer.Choose(wanted.chosen);
    }
}

void RestoreRest(Writer &writer, const ChannelState &wanted, const ChannelState &told, Difference differs)
{
    const auto orRest = [](std::int16_t value, std::int16_t there, std::int16_t rest) {
        return value == kUnset && there != kUnset && there != rest ? rest : value;
    };
    const std::int16_t pressure = orRest(wanted.pressure, told.pressure, 0);
    if (differs.Wants(pressure, told.pressure)) {
        writer.Write(Status::kChannelPressure, pressure);
    }
    const std::int16_t bend = orRest(wanted.bend, told.bend, kBendAtRest);
    if (differs.Wants(bend, told.bend)) {
        writer.Write(Status::kPitchBend, bend & 0x7F, bend >> 7);
    }
}

} // namespace

void Absorb(ChannelStates &channels, std::span<const std::uint8_t> message)
{
    if (message.size() < 2 || !Status::IsChannel(message[0])) {
        return;
    }
    ChannelState &channel = channels.at(Status::ChannelOf(message[0]));
    const std::uint8_t data1 = message[1] & 0x7FU;
    const std::uint8_t data2 = message.size() > 2 ? message[2] & 0x7FU : 0;
    switch (Status::KindOf(message[0])) {
    case Status::kNoteOff:
        channel.sounding.reset(data1);
        break;
    case Status::kNoteOn:
        channel.sounding.set(data1, data2 != 0);
        break;
    case Status::kControlChange:
        NoteController(channel, data1, data2);
        break;
    case Status::kProgramChange:
        channel.programMsb = channel.controllers[Controller::kBankMsb];
        channel.programLsb = channel.controllers[Controller::kBankLsb];
        channel.program = data1;
        break;
    case Status::kChannelPressure:
        channel.pressure = data1;
        break;
    case Status::kPitchBend:
        channel.bend = static_cast<std::int16_t>(data1 | data2 << 7);
        break;
    default:
        break;
    }
}

std::vector<ShortMessage> Silencing(const ChannelStates &told)
{
    std::vector<ShortMessage> messages;
    for (std::size_t i = 0; i < told.size(); ++i) {
        Writer writer(messages, i);
        const ChannelState &channel = told.at(i);
        for (std::size_t note = 0; note < channel.sounding.size(); ++note) {
            if (channel.sounding.test(note)) {
                writer.Write(Status::kNoteOff, static_cast<int>(note), kReleaseVelocity);
            }
        }
        if (channel.sounding.any()) {
            writer.Control(Controller::kAllNotesOff, 0);
        }
        for (const std::uint8_t pedal : kHoldingPedals) {
            if (channel.controllers.at(pedal) >= kPedalDown) {
                writer.Control(pedal, 0);
            }
        }
    }
    return messages;
}

std::vector<ShortMessage> Restoring(const ChannelStates &wanted, const ChannelStates &told, bool whole)
{
    std::vector<ShortMessage> messages;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        Writer writer(messages, i);
        RestoreProgram(writer, wanted.at(i), told.at(i), {whole});
        RestoreControllers(writer, wanted.at(i), told.at(i), {whole});
        RestoreParameters(writer, wanted.at(i), told.at(i), {whole});
        RestoreRest(writer, wanted.at(i), told.at(i), {whole});
    }
    return messages;
}

} // namespace velluto
