#include "driver/Values.h"

#include "driver/Words.h"
#include "keyboard/frmTastiera.h"
#include "player/SequencerTexts.h"
#include "player/frmMIDIPlayer.h"

#include <algorithm>
#include <array>
#include <span>
#include <tuple>
#include <type_traits>

namespace velluto::driver {

namespace {

struct NamedValue {
    std::string_view name;
    Json (*read)(Velluto &program);
    int first = 0; // the index of a table's first element
};

// A number, true or false, or a text of the program.
template <class T>
Json ToJson(const T &value)
{
    if constexpr (std::is_arithmetic_v<T>) {
        return value;
    } else {
        return ProgramText(value);
    }
}

Json ToJson(const FileImage &image)
{
    return Utf8FromWindows1252(image.Text(0, image.size()));
}

Json ToJson(const ShortMessage &message)
{
    return message.Packed();
}

// A product name ends at its first zero character.
Json ToJson(const MidiDeviceCaps &caps)
{
    const auto *const end = std::ranges::find(caps.name, '\0');
    return ProgramText(std::string_view(caps.name.data(), static_cast<std::size_t>(end - caps.name.begin())));
}

Json ToJson(const PathText &path)
{
    return ProgramText(path.Trimmed());
}

Json ToJson(const WindowPlacement &entry)
{
    return {{"Top", entry.Top},     {"Left", entry.Left}, {"Width", entry.Width},       {"Height", entry.Height},
            {"State", entry.State}, {"Role", entry.Role}, {"MinWidth", entry.MinWidth}, {"MinHeight", entry.MinHeight}};
}

Json ToJson(const DocRecord &record)
{
    return {{"Path", ToJson(record.Path)}, {"Role", record.Role},         {"State", record.State},        {"Left", record.Left},
            {"Top", record.Top},           {"Width", record.Width},       {"Height", record.Height},      {"Tag6", record.Tag6},
            {"Tag7", record.Tag7},         {"MinWidth", record.MinWidth}, {"MinHeight", record.MinHeight}};
}

Json ToJson(const RecentRecord &record)
{
    return {{"Path", ToJson(record.Path)}, {"Height", record.Height}, {"Width", record.Width}, {"Top", record.Top},
            {"Left", record.Left},         {"Flag", record.Flag},     {"Kind", record.Kind}};
}

// Flags are counted as 0 and 1.
Json Flag(bool flag)
{
    return flag ? 1 : 0;
}

// The record that a variable lives in. The keyboard's notes live as long as its window.
template <class Record>
const Record &Home(Velluto &program)
{
    if constexpr (std::is_same_v<Record, NoteState>) {
        if (program.keyboard.window == nullptr) {
            throw BadCommand("the keyboard is not open");
        }
        return program.keyboard.window->notes;
    } else {
        Modulo1 &app = program.app;
        const auto homes =
            std::tie(app, app.paths, app.messages, app.settings, app.children, program.midi, program.files, program.files.clipboard,
                     program.recall.tables, program.notes, static_cast<PlayerVariables &>(program.player));
        return std::get<Record &>(homes);
    }
}

template <class Record, class Value>
std::type_identity<Record> RecordOf(Value Record::*);

// The variable that a member of a record is.
template <auto Member>
const auto &Variable(Velluto &program)
{
    using Record = typename decltype(RecordOf(Member))::type;
    return Home<Record>(program).*Member;
}

// Readers of one variable. First is the place in its array from which on a table's elements are the program's.
template <auto Member>
Json Of(Velluto &program)
{
    return ToJson(Variable<Member>(program));
}
template <auto Member>
Json BytesOf(Velluto &program)
{
    return Utf8FromWindows1252(Variable<Member>(program));
}
template <auto Member>
Json FlagOf(Velluto &program)
{
    return Flag(Variable<Member>(program));
}

// The elements of a table from the given place on, each made by `make`.
template <class Table, class Make>
Json Elements(const Table &table, std::size_t first, Make make)
{
    Json json = Json::array();
    for (std::size_t i = first; i < table.size(); ++i) {
        json.push_back(make(table[i]));
    }
    return json;
}
template <auto Member, std::size_t First = 0>
Json TableOf(Velluto &program)
{
    return Elements(Variable<Member>(program), First, [](const auto &element) { return ToJson(element); });
}
template <auto Member>
Json RowsOf(Velluto &program)
{
    return Elements(Variable<Member>(program), 1, Utf8FromWindows1252);
}
template <auto Member>
Json NotesOf(Velluto &program)
{
    return Elements(Variable<Member>(program).Bytes(), 0, [](const auto &note) { return ToJson(note); });
}
// The names of the windows that exist among some homes; empty texts for the others.
Json WindowsIn(std::span<const std::unique_ptr<ChildForm>> homes, std::size_t first)
{
    return Elements(homes, first, [](const auto &window) { return window == nullptr ? std::string() : window->FullName(); });
}

// What the records of the three types of document hold; programs, styles and performances are types 0 to 2.
template <std::size_t Type>
Json CurrentOf(Velluto &program)
{
    return program.files.types[Type].current;
}
template <std::size_t Type>
Json WorkOf(Velluto &program)
{
    return ToJson(program.files.types[Type].work);
}
template <std::size_t Type>
Json OpenFlagsOf(Velluto &program)
{
    return Elements(program.files.types[Type].openFlags, 1, Flag);
}
template <std::size_t Type, std::size_t First = 0>
Json WindowsOf(Velluto &program)
{
    const DocumentType &type = program.files.types[Type];
    return WindowsIn(std::span(type.windows).first(type.table.size()), First);
}
Json StyleOverviews(Velluto &program)
{
    return WindowsIn(program.files.overviews, ViewKind::StyleOverview - ViewKind::PerformanceOverview);
}

template <auto Member>
Json OfDevice(Velluto &program)
{
    return ToJson((program.app.ports.sequencer.*Member)());
}

// That of the window's own control, as long as there is one.
std::string LastCommand(const Velluto &program)
{
    return program.player.window != nullptr ? program.player.window->MMControl1.Command() : program.app.ports.sequencer.Command();
}

constexpr auto kNamed = std::to_array<NamedValue>({
    {"AppDir", Of<&RunPaths::AppDir>},
    {"IniPath", Of<&RunPaths::IniPath>},
    {"GuidaPath", Of<&RunPaths::GuidaPath>},
    {"GuidePath", Of<&RunPaths::GuidePath>},
    {"NotebookPath", Of<&RunPaths::NotebookPath>},
    {"PcgTablePath", Of<&RunPaths::PcgTablePath>},
    {"StyTablePath", Of<&RunPaths::StyTablePath>},
    {"PrfBank1Path", Of<&RunPaths::PrfBank1Path>},
    {"StartAborted", Of<&Modulo1::StartAborted>},
    {"CurrentOperation", Of<&Modulo1::CurrentOperation>},
    {"TitleLine", Of<&Modulo1::TitleLine>},
    {"ViewKind", Of<&Modulo1::ViewKind>},
    {"slot", Of<&Modulo1::slot>},
    {"Lingua", Of<&Settings::Lingua>},
    {"LinguaBase", Of<&Messages::LinguaBase>},
    {"ReservedFlag17", Of<&Settings::ReservedFlag17>},
    {"PlayerPanelOpen", Of<&Settings::PlayerPanelOpen>},
    {"ThruOn", Of<&Settings::ThruOn>},
    {"PcgUserAssigned", Of<&Settings::PcgUserAssigned>},
    {"StatusBarOn", Of<&Settings::StatusBarOn>},
    {"MidiInDev", Of<&Settings::MidiInDev>},
    {"MidiOutDev", Of<&Settings::MidiOutDev>},
    {"LastChannel", Of<&Settings::LastChannel>},
    {"KeyboardRecord", TableOf<&Settings::KeyboardRecord>, 0},
    {"PlacementTable", TableOf<&Settings::PlacementTable>, 0},
    {"ChannelRole", TableOf<&Settings::ChannelRole>, 0},
    {"PcgDocTable", TableOf<&Settings::PcgDocTable, 1>, 1},
    {"StyDocTable", TableOf<&Settings::StyDocTable>, 0},
    {"PrfDocTable", TableOf<&Settings::PrfDocTable>, 0},
    {"RecentTable", TableOf<&Settings::RecentTable, 1>, 1},
    {"LastDir", Of<&Settings::LastDir>},
    {"PlayerDir", Of<&Settings::PlayerDir>},
    {"PlayerName", Of<&Settings::PlayerName>},
    {"PlayerFile", Of<&Settings::PlayerFile>},
    {"ChildCount", Of<&ChildWindows::ChildCount>},
    {"RestoringLayout", Of<&ChildWindows::RestoringLayout>},
    {"ClosingAll", Of<&ChildWindows::ClosingAll>},
    {"WorkRecentRecord", Of<&Modulo1::WorkRecentRecord>},
    {"hMidiOut", Of<&MidiState::hMidiOut>},
    {"hMidiIn", Of<&MidiState::hMidiIn>},
    {"MidiOutOpen", Of<&MidiState::MidiOutOpen>},
    {"MidiInOpen", Of<&MidiState::MidiInOpen>},
    {"SendArmed", Of<&MidiState::SendArmed>},
    {"ShortMsg", Of<&MidiState::ShortMsg>},
    {"MidiResult", Of<&MidiState::MidiResult>},
    {"ErrorText", Of<&MidiState::ErrorText>},
    {"NoMidiOut", Of<&MidiState::NoMidiOut>},
    {"NoMidiIn", Of<&MidiState::NoMidiIn>},
    {"MidiOutCount", Of<&MidiState::MidiOutCount>},
    {"MidiInCount", Of<&MidiState::MidiInCount>},
    {"MidiOutCaps", TableOf<&MidiState::MidiOutCaps>},
    {"MidiInCaps", TableOf<&MidiState::MidiInCaps>},
    {"MidiOutValid", TableOf<&MidiState::MidiOutValid>},
    {"MidiInValid", TableOf<&MidiState::MidiInValid>},
    {"ThruCheckedAtLoad", Of<&MidiState::ThruCheckedAtLoad>},
    {"ThruEnabledAtLoad", Of<&MidiState::ThruEnabledAtLoad>},
    {"MonitorEnabled", Of<&MidiState::MonitorEnabled>},
    {"BaseNote", Of<&NoteState::BaseNote>},
    {"KeyIndex", Of<&NoteState::KeyIndex>},
    {"CurrentNote", Of<&NoteState::CurrentNote>},
    {"HeldNotes", NotesOf<&NoteState::HeldNotes>, 0},
    {"ChordNotes", NotesOf<&NoteState::ChordNotes>, 0},
    {"ChordArmed", FlagOf<&NoteState::ChordArmed>},
    {"ClickGuard", FlagOf<&NoteState::ClickGuard>},
    {"LoadImage", Of<&FilesState::LoadImage>},
    {"BuildImage", Of<&FilesState::BuildImage>},
    {"BuildPrefix", BytesOf<&FilesState::BuildPrefix>},
    {"ItemIndex", TableOf<&FilesState::ItemIndex>},
    {"BuildItemIndex", TableOf<&FilesState::BuildItemIndex>},
    {"SavedItemIndex", TableOf<&FilesState::SavedItemIndex>},
    {"CutCount", Of<&FilesState::CutCount>},
    {"ClipValid", Of<&ItemClipboard::ClipValid>},
    {"ClipImage", Of<&ItemClipboard::ClipImage>},
    {"ClipFirstRow", Of<&ItemClipboard::ClipFirstRow>},
    {"ClipCount", Of<&ItemClipboard::ClipCount>},
    {"ClipKind", Of<&ItemClipboard::ClipKind>},
    {"ClipSlot", Of<&ItemClipboard::ClipSlot>},
    {"ClipHasSts", Of<&ItemClipboard::ClipHasSts>},
    {"CurrentPcgSlot", CurrentOf<0>},
    {"CurrentStySlot", CurrentOf<1>},
    {"CurrentPrfSlot", CurrentOf<2>},
    {"PcgOpenFlags", OpenFlagsOf<0>, 1},
    {"StyOpenFlags", OpenFlagsOf<1>, 1},
    {"PrfOpenFlags", OpenFlagsOf<2>, 1},
    {"PcgWindows", WindowsOf<0, 1>, 1},
    {"StyWindows", WindowsOf<1>, 0},
    {"PrfWindows", WindowsOf<2>, 0},
    {"StyUserAllWindows", StyleOverviews, ViewKind::StyleOverview},
    {"RowBuffer", BytesOf<&FilesState::RowBuffer>},
    {"WorkPcgRecord", WorkOf<0>},
    {"WorkStyRecord", WorkOf<1>},
    {"WorkPrfRecord", WorkOf<2>},
    {"WorkPlacement", Of<&FilesState::WorkPlacement>},
    {"FileFolder", Of<&FilesState::FileFolder>},
    {"FileName", Of<&FilesState::FileName>},
    {"OpenChainCode", Of<&FilesState::OpenChainCode>},
    {"KnownFileFlag", Of<&FilesState::KnownFileFlag>},
    {"PcgFileSlot", Of<&FilesState::PcgFileSlot>},
    {"RecentKind", Of<&FilesState::RecentKind>},
    {"PcgTable", RowsOf<&FactoryTables::PcgTable>, 1},
    {"StyTable", RowsOf<&FactoryTables::StyTable>, 1},
    {"GuideText", BytesOf<&NotesState::GuideText>},
    {"GuideLength", Of<&NotesState::GuideLength>},
    {"NotebookText", BytesOf<&NotesState::NotebookText>},
    {"CompilationImage", BytesOf<&PlayerVariables::image>},
    {"CompilationName", Of<&PlayerVariables::CompilationName>},
    {"CompilationDirty", Of<&PlayerVariables::CompilationDirty>},
    {"PlayFromCompilation", Of<&PlayerVariables::PlayFromCompilation>},
    {"PlayAllArmed", Of<&PlayerVariables::PlayAllArmed>},
    {"SelectionGuard", Of<&PlayerVariables::SelectionGuard>},
    {"DeviceOpenTried", Of<&PlayerVariables::DeviceOpenTried>},
    {"CurrentCompRow", Of<&PlayerVariables::CurrentCompRow>},
    {"CurrentFileRow", Of<&PlayerVariables::CurrentFileRow>},
    {"PlayingFileRow", Of<&PlayerVariables::PlayingFileRow>},
    {"CompilationIndex", Of<&PlayerVariables::CompilationIndex>},
    {"NextFilePath", Of<&PlayerVariables::NextFilePath>},
    {"PlayDir", Of<&PlayerVariables::PlayDir>},
    {"OpenFilePath", Of<&PlayerVariables::OpenFilePath>},
    {"RepeatOff", Of<&PlayerVariables::RepeatOff>},
    {"PlayAllOff", Of<&PlayerVariables::PlayAllOff>},
    {"TrackLength", Of<&PlayerVariables::TrackLength>},
    {"StartMark", Of<&PlayerVariables::StartMark>},
    {"StopMark", Of<&PlayerVariables::StopMark>},
    {"MarksActive", Of<&PlayerVariables::MarksActive>},
    {"TickCount", Of<&PlayerVariables::TickCount>},
    {"TickMap", TableOf<&PlayerVariables::TickMap>},
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

Json ValueOf(Velluto &program, std::string_view name)
{
    const std::size_t bracket = std::min(name.find('('), name.size());
    const std::string_view plain = name.substr(0, bracket);
    const auto *const found = std::ranges::find(kNamed, plain, &NamedValue::name);
    if (found == kNamed.end() || (bracket < name.size() && name.back() != ')')) {
        throw BadCommand("no variable " + std::string(name));
    }
    Json value = found->read(program);
    if (bracket == name.size()) {
        return value;
    }
    if (!value.is_array()) {
        throw BadCommand(std::string(plain) + " is no table");
    }
    const int last = found->first + static_cast<int>(value.size()) - 1;
    const int index = ToNumber(name.substr(bracket + 1, name.size() - bracket - 2), "the index", found->first, last);
    return value.at(static_cast<std::size_t>(index - found->first));
}

std::vector<std::string_view> ValueNames()
{
    std::vector<std::string_view> names;
    std::ranges::transform(kNamed, std::back_inserter(names), &NamedValue::name);
    return names;
}

} // namespace velluto::driver
