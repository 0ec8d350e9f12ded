#include "midi/MessageWords.h"

#include "app/Language.h"
#include "platform/ShortMessage.h"

#include <algorithm>
#include <array>

namespace velluto {

namespace {

struct Named {
    int number;
    TwoTexts words;
};

constexpr std::array kControllers = std::to_array<Named>({
    {0, {"banco (MSB)", "bank (MSB)"}},
    {1, {"modulazione", "modulation"}},
    {2, {"controller 2", "controller 2"}},
    {7, {"volume", "volume"}},
    {10, {"pan", "pan"}},
    {32, {"banco (LSB)", "bank (LSB)"}},
    {72, {"release", "release time"}},
    {73, {"attacco", "attack time"}},
    {91, {"riverbero", "reverb"}},
    {93, {"chorus", "chorus"}},
    {MidiController::kAllNotesOff, {"fine di tutte le note", "all notes off"}},
});

constexpr TwoTexts kChannel{"canale ", "channel "};
constexpr TwoTexts kNoteOn{"inizio nota ", "note on "};
constexpr TwoTexts kNoteOff{"fine nota ", "note off "};
constexpr TwoTexts kVelocity{", velocity ", ", velocity "};
constexpr TwoTexts kProgram{"program ", "program "};
constexpr TwoTexts kBend{"pitch bend ", "pitch bend "};
constexpr int kMiddleBend = 64;

std::string NoteName(int note)
{
    constexpr std::array<std::string_view, 12> kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    constexpr int kLowestOctave = -1; // of note 0
    return std::string(kNames.at(static_cast<std::size_t>(note % 12))) + std::to_string(note / 12 + kLowestOctave) + " (" +
           std::to_string(note) + ")";
}

std::string ControlInWords(int controller, int value, int linguaBase)
{
    const auto *const found = std::ranges::find(kControllers, controller, &Named::number);
    std::string words = found == kControllers.end() ? "controller " + std::to_string(controller) : std::string(found->words.In(linguaBase));
    return controller == MidiController::kAllNotesOff ? words : words + " " + std::to_string(value);
}

std::string MessageInWords(std::uint8_t kind, int first, int second, int linguaBase)
{
    const auto in = [linguaBase](const TwoTexts &texts) { return std::string(texts.In(linguaBase)); };
    switch (kind) {
    case MidiStatus::kNoteOff:
    case MidiStatus::kNoteOn:
        return in(kind == MidiStatus::kNoteOn ? kNoteOn : kNoteOff) + NoteName(first) + in(kVelocity) + std::to_string(second);
    case MidiStatus::kControlChange:
        return ControlInWords(first, second, linguaBase);
    case MidiStatus::kProgramChange:
        return in(kProgram) + std::to_string(first);
    case MidiStatus::kPitchBend:
        return in(kBend) + std::to_string(second - kMiddleBend);
    default:
        return {};
    }
}

} // namespace

std::string MessagesInWords(std::span<const std::uint8_t> bytes, int linguaBase)
{
    std::string words;
    int channel = -1;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::uint8_t status = bytes[at++];
        const std::uint8_t kind = MidiStatus::KindOf(status);
        const std::size_t data = DataLength(status);
        const auto isData = [&](std::size_t place) { return place < bytes.size() && bytes[place] < kFirstStatus; };
        // All notes off is shown without its last byte, which is always 0.
        const bool isShort =
            kind == MidiStatus::kControlChange && isData(at) && bytes[at] == MidiController::kAllNotesOff && !isData(at + 1);
        if (!MidiStatus::IsChannel(status) || !isData(at) || (data == 2 && !isData(at + 1) && !isShort)) {
            continue;
        }
        const int second = data == 2 && !isShort ? bytes[at + 1] : 0;
        const std::string message = MessageInWords(kind, bytes[at], second, linguaBase);
        at += isShort ? 1 : data;
        if (message.empty()) {
            continue;
        }
        const int its = static_cast<int>(status & 0x0FU) + 1;
        words += its == channel ? ", " : (words.empty() ? "" : "; ") + std::string(kChannel.In(linguaBase)) + std::to_string(its) + ": ";
        channel = its;
        words += message;
    }
    return words;
}

} // namespace velluto
