#include "driver/NamedValue.h"

#include "player/SequencerTexts.h"
#include "player/frmMIDIPlayer.h"

#include <array>

namespace velluto::driver {

namespace {

template <auto Member>
Json OfPlayer(Velluto &program)
{
    return PlainValue(program.player.*Member);
}
template <auto Member>
Json OfDevice(Velluto &program)
{
    return PlainValue((program.app.ports.sequencer.*Member)());
}

// That of the window's own control, as long as there is one.
std::string LastCommand(const Velluto &program)
{
    return program.player.window != nullptr ? program.player.window->MMControl1.Command() : program.app.ports.sequencer.Command();
}

Json TickMap(Velluto &program)
{
    return program.player.TickMap;
}

Json CompilationImage(Velluto &program)
{
    return Utf8FromWindows1252(program.player.image);
}

constexpr auto kNamed = std::to_array<NamedValue>({
    {"CompilationImage", CompilationImage},
    {"CompilationName", OfPlayer<&PlayerState::CompilationName>},
    {"CompilationDirty", OfPlayer<&PlayerState::CompilationDirty>},
    {"PlayFromCompilation", OfPlayer<&PlayerState::PlayFromCompilation>},
    {"PlayAllArmed", OfPlayer<&PlayerState::PlayAllArmed>},
    {"SelectionGuard", OfPlayer<&PlayerState::SelectionGuard>},
    {"DeviceOpenTried", OfPlayer<&PlayerState::DeviceOpenTried>},
    {"CurrentCompRow", OfPlayer<&PlayerState::CurrentCompRow>},
    {"CurrentFileRow", OfPlayer<&PlayerState::CurrentFileRow>},
    {"PlayingFileRow", OfPlayer<&PlayerState::PlayingFileRow>},
    {"CompilationIndex", OfPlayer<&PlayerState::CompilationIndex>},
    {"NextFilePath", OfPlayer<&PlayerState::NextFilePath>},
    {"PlayDir", OfPlayer<&PlayerState::PlayDir>},
    {"OpenFilePath", OfPlayer<&PlayerState::OpenFilePath>},
    {"RepeatOff", OfPlayer<&PlayerState::RepeatOff>},
    {"PlayAllOff", OfPlayer<&PlayerState::PlayAllOff>},
    {"TrackLength", OfPlayer<&PlayerState::TrackLength>},
    {"StartMark", OfPlayer<&PlayerState::StartMark>},
    {"StopMark", OfPlayer<&PlayerState::StopMark>},
    {"MarksActive", OfPlayer<&PlayerState::MarksActive>},
    {"TickCount", OfPlayer<&PlayerState::TickCount>},
    {"TickMap", TickMap},
    {"Command", [](Velluto &program) { return Json(LastCommand(program)); }},
    {"Mode", OfDevice<&Sequencer::Mode>},
    {"Position", OfDevice<&Sequencer::Position>},
    {"From", OfDevice<&Sequencer::From>},
    {"Length", OfDevice<&Sequencer::Length>},
    {"Error", OfDevice<&Sequencer::Error>},
    {"ErrorMessage",
     [](Velluto &program) { return Json(Sentence(program.app.ports.sequencer.Reason(), program.app.messages.LinguaBase)); }},
});

} // namespace

std::span<const NamedValue> PlayerValues()
{
    return kNamed;
}

} // namespace velluto::driver
