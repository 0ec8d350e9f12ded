#include "driver/Values.h"

#include "driver/NamedValue.h"
#include "driver/Words.h"
#include "files/frmPcgUN.h"
#include "files/frmPrfUN.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"
#include "keyboard/frmTastiera.h"

#include <algorithm>
#include <array>

namespace velluto::driver {

namespace {

template <class T>
Json ToJson(const T &value)
{
    return PlainValue(value);
}

Json ToJson(const FileImage &image)
{
    return Utf8FromWindows1252(AsText(image.View()));
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

// The elements of a table from the given place in its array on, which is index `first` of the program's own count.
template <class Table>
Json FromElement(const Table &table, std::size_t first)
{
    Json json = Json::array();
    for (std::size_t i = first; i < table.size(); ++i) {
        json.push_back(ToJson(table.at(i)));
    }
    return json;
}

// Flags are counted as 0 and 1.
Json Flags(const std::array<bool, 9> &flags)
{
    Json json = Json::array();
    for (std::size_t i = 1; i < flags.size(); ++i) {
        json.push_back(flags.at(i) ? 1 : 0);
    }
    return json;
}

template <class Table>
Json RawRows(const Table &table)
{
    Json json = Json::array();
    for (std::size_t i = 1; i < table.size(); ++i) {
        json.push_back(Utf8FromWindows1252(table.at(i)));
    }
    return json;
}

// The names of the windows that exist in a table, from the given place on; empty texts for the others.
template <auto Member, std::size_t First>
Json WindowsOfFiles(Velluto &program)
{
    const auto &windows = program.files.*Member;
    Json json = Json::array();
    for (std::size_t i = First; i < windows.size(); ++i) {
        const Form *window = windows.at(i).get();
        json.push_back(window == nullptr ? std::string{} : window->FullName());
    }
    return json;
}

// Readers of one member of a record of the program.
template <auto Member>
Json OfPaths(Velluto &program)
{
    return ToJson(program.app.paths.*Member);
}
template <auto Member>
Json OfApp(Velluto &program)
{
    return ToJson(program.app.*Member);
}
template <auto Member>
Json OfSettings(Velluto &program)
{
    return ToJson(program.app.settings.*Member);
}
template <auto Member, std::size_t First>
Json TableOfSettings(Velluto &program)
{
    return FromElement(program.app.settings.*Member, First);
}
template <auto Member>
Json OfChildren(Velluto &program)
{
    return ToJson(program.app.children.*Member);
}
template <auto Member>
Json OfMidi(Velluto &program)
{
    return ToJson(program.midi.*Member);
}
template <auto Member>
Json TableOfMidi(Velluto &program)
{
    return FromElement(program.midi.*Member, 0);
}
template <auto Member>
Json OfFiles(Velluto &program)
{
    return ToJson(program.files.*Member);
}
template <auto Member>
Json TableOfFiles(Velluto &program)
{
    return FromElement(program.files.*Member, 0);
}
template <auto Member>
Json FlagsOfFiles(Velluto &program)
{
    return Flags(program.files.*Member);
}
template <auto Member>
Json BytesOfFiles(Velluto &program)
{
    return Utf8FromWindows1252(program.files.*Member);
}
template <auto Member>
Json OfClipboard(Velluto &program)
{
    return ToJson(program.files.clipboard.*Member);
}
template <auto Member>
Json TableOfRecall(Velluto &program)
{
    return RawRows(program.recall.tables.*Member);
}
// The keyboard's notes live as long as its window.
const NoteState &Notes(Velluto &program)
{
    if (program.keyboard.window == nullptr) {
        throw BadCommand("the keyboard is not open");
    }
    return program.keyboard.window->notes;
}
template <auto Member>
Json OfNotes(Velluto &program)
{
    return ToJson(Notes(program).*Member);
}
// Flags are counted as 0 and 1.
template <bool NoteState::*Member>
Json FlagOfNotes(Velluto &program)
{
    return Notes(program).*Member ? 1 : 0;
}
template <auto Member>
Json TableOfNotes(Velluto &program)
{
    return FromElement((Notes(program).*Member).Bytes(), 0);
}
template <auto Member>
Json OfHelp(Velluto &program)
{
    return ToJson(program.notes.*Member);
}
template <auto Member>
Json BytesOfHelp(Velluto &program)
{
    return Utf8FromWindows1252(program.notes.*Member);
}
Json LinguaBase(Velluto &program)
{
    return ToJson(program.app.messages.LinguaBase);
}

constexpr auto kNamed = std::to_array<NamedValue>({
    {"AppDir", OfPaths<&RunPaths::AppDir>},
    {"IniPath", OfPaths<&RunPaths::IniPath>},
    {"GuidaPath", OfPaths<&RunPaths::GuidaPath>},
    {"GuidePath", OfPaths<&RunPaths::GuidePath>},
    {"NotebookPath", OfPaths<&RunPaths::NotebookPath>},
    {"PcgTablePath", OfPaths<&RunPaths::PcgTablePath>},
    {"StyTablePath", OfPaths<&RunPaths::StyTablePath>},
    {"PrfBank1Path", OfPaths<&RunPaths::PrfBank1Path>},
    {"StartAborted", OfApp<&Modulo1::StartAborted>},
    {"CurrentOperation", OfApp<&Modulo1::CurrentOperation>},
    {"TitleLine", OfApp<&Modulo1::TitleLine>},
    {"ViewKind", OfApp<&Modulo1::ViewKind>},
    {"slot", OfApp<&Modulo1::slot>},
    {"Lingua", OfSettings<&Settings::Lingua>},
    {"LinguaBase", LinguaBase},
    {"ReservedFlag17", OfSettings<&Settings::ReservedFlag17>},
    {"PlayerPanelOpen", OfSettings<&Settings::PlayerPanelOpen>},
    {"ThruOn", OfSettings<&Settings::ThruOn>},
    {"PcgUserAssigned", OfSettings<&Settings::PcgUserAssigned>},
    {"StatusBarOn", OfSettings<&Settings::StatusBarOn>},
    {"MidiInDev", OfSettings<&Settings::MidiInDev>},
    {"MidiOutDev", OfSettings<&Settings::MidiOutDev>},
    {"LastChannel", OfSettings<&Settings::LastChannel>},
    {"KeyboardRecord", TableOfSettings<&Settings::KeyboardRecord, 0>, 0},
    {"PlacementTable", TableOfSettings<&Settings::PlacementTable, 0>, 0},
    {"ChannelRole", TableOfSettings<&Settings::ChannelRole, 0>, 0},
    {"PcgDocTable", TableOfSettings<&Settings::PcgDocTable, 1>, 1},
    {"StyDocTable", TableOfSettings<&Settings::StyDocTable, 0>, 0},
    {"PrfDocTable", TableOfSettings<&Settings::PrfDocTable, 0>, 0},
    {"RecentTable", TableOfSettings<&Settings::RecentTable, 1>, 1},
    {"LastDir", OfSettings<&Settings::LastDir>},
    {"PlayerDir", OfSettings<&Settings::PlayerDir>},
    {"PlayerName", OfSettings<&Settings::PlayerName>},
    {"PlayerFile", OfSettings<&Settings::PlayerFile>},
    {"ChildCount", OfChildren<&ChildWindows::ChildCount>},
    {"RestoringLayout", OfChildren<&ChildWindows::RestoringLayout>},
    {"ClosingAll", OfChildren<&ChildWindows::ClosingAll>},
    {"WorkRecentRecord", OfApp<&Modulo1::WorkRecentRecord>},
    {"hMidiOut", OfMidi<&MidiState::hMidiOut>},
    {"hMidiIn", OfMidi<&MidiState::hMidiIn>},
    {"MidiOutOpen", OfMidi<&MidiState::MidiOutOpen>},
    {"MidiInOpen", OfMidi<&MidiState::MidiInOpen>},
    {"SendArmed", OfMidi<&MidiState::SendArmed>},
    {"ShortMsg", OfMidi<&MidiState::ShortMsg>},
    {"MidiResult", OfMidi<&MidiState::MidiResult>},
    {"ErrorText", OfMidi<&MidiState::ErrorText>},
    {"NoMidiOut", OfMidi<&MidiState::NoMidiOut>},
    {"NoMidiIn", OfMidi<&MidiState::NoMidiIn>},
    {"MidiOutCount", OfMidi<&MidiState::MidiOutCount>},
    {"MidiInCount", OfMidi<&MidiState::MidiInCount>},
    {"MidiOutCaps", TableOfMidi<&MidiState::MidiOutCaps>},
    {"MidiInCaps", TableOfMidi<&MidiState::MidiInCaps>},
    {"MidiOutValid", TableOfMidi<&MidiState::MidiOutValid>},
    {"MidiInValid", TableOfMidi<&MidiState::MidiInValid>},
    {"ThruCheckedAtLoad", OfMidi<&MidiState::ThruCheckedAtLoad>},
    {"ThruEnabledAtLoad", OfMidi<&MidiState::ThruEnabledAtLoad>},
    {"MonitorEnabled", OfMidi<&MidiState::MonitorEnabled>},
    {"BaseNote", OfNotes<&NoteState::BaseNote>},
    {"KeyIndex", OfNotes<&NoteState::KeyIndex>},
    {"CurrentNote", OfNotes<&NoteState::CurrentNote>},
    {"HeldNotes", TableOfNotes<&NoteState::HeldNotes>, 0},
    {"ChordNotes", TableOfNotes<&NoteState::ChordNotes>, 0},
    {"ChordArmed", FlagOfNotes<&NoteState::ChordArmed>},
    {"ClickGuard", FlagOfNotes<&NoteState::ClickGuard>},
    {"LoadImage", OfFiles<&FilesState::LoadImage>},
    {"BuildImage", OfFiles<&FilesState::BuildImage>},
    {"BuildPrefix", BytesOfFiles<&FilesState::BuildPrefix>},
    {"ItemIndex", TableOfFiles<&FilesState::ItemIndex>},
    {"BuildItemIndex", TableOfFiles<&FilesState::BuildItemIndex>},
    {"SavedItemIndex", TableOfFiles<&FilesState::SavedItemIndex>},
    {"CutCount", OfFiles<&FilesState::CutCount>},
    {"ClipValid", OfClipboard<&ItemClipboard::ClipValid>},
    {"ClipImage", OfClipboard<&ItemClipboard::ClipImage>},
    {"ClipFirstRow", OfClipboard<&ItemClipboard::ClipFirstRow>},
    {"ClipCount", OfClipboard<&ItemClipboard::ClipCount>},
    {"ClipKind", OfClipboard<&ItemClipboard::ClipKind>},
    {"ClipSlot", OfClipboard<&ItemClipboard::ClipSlot>},
    {"ClipHasSts", OfClipboard<&ItemClipboard::ClipHasSts>},
    {"CurrentPcgSlot", OfFiles<&FilesState::CurrentPcgSlot>},
    {"CurrentStySlot", OfFiles<&FilesState::CurrentStySlot>},
    {"CurrentPrfSlot", OfFiles<&FilesState::CurrentPrfSlot>},
    {"PcgOpenFlags", FlagsOfFiles<&FilesState::PcgOpenFlags>, 1},
    {"StyOpenFlags", FlagsOfFiles<&FilesState::StyOpenFlags>, 1},
    {"PrfOpenFlags", FlagsOfFiles<&FilesState::PrfOpenFlags>, 1},
    {"PcgWindows", WindowsOfFiles<&FilesState::PcgWindows, 1>, 1},
    {"StyWindows", WindowsOfFiles<&FilesState::StyWindows, 0>, 0},
    {"PrfWindows", WindowsOfFiles<&FilesState::PrfWindows, 0>, 0},
    {"StyUserAllWindows", WindowsOfFiles<&FilesState::StyUserAllWindows, 0>, ViewKind::StyleOverview},
    {"RowBuffer", BytesOfFiles<&FilesState::RowBuffer>},
    {"WorkPcgRecord", OfFiles<&FilesState::WorkPcgRecord>},
    {"WorkStyRecord", OfFiles<&FilesState::WorkStyRecord>},
    {"WorkPrfRecord", OfFiles<&FilesState::WorkPrfRecord>},
    {"WorkPlacement", OfFiles<&FilesState::WorkPlacement>},
    {"FileFolder", OfFiles<&FilesState::FileFolder>},
    {"FileName", OfFiles<&FilesState::FileName>},
    {"OpenChainCode", OfFiles<&FilesState::OpenChainCode>},
    {"KnownFileFlag", OfFiles<&FilesState::KnownFileFlag>},
    {"PcgFileSlot", OfFiles<&FilesState::PcgFileSlot>},
    {"RecentKind", OfFiles<&FilesState::RecentKind>},
    {"PcgTable", TableOfRecall<&FactoryTables::PcgTable>, 1},
    {"StyTable", TableOfRecall<&FactoryTables::StyTable>, 1},
    {"GuideText", BytesOfHelp<&NotesState::GuideText>},
    {"GuideLength", OfHelp<&NotesState::GuideLength>},
    {"NotebookText", BytesOfHelp<&NotesState::NotebookText>},
});

const NamedValue *Find(std::string_view name)
{
    for (const std::span<const NamedValue> named : {std::span<const NamedValue>(kNamed), PlayerValues()}) {
        const auto found = std::ranges::find(named, name, &NamedValue::name);
        if (found != named.end()) {
            return &*found;
        }
    }
    return nullptr;
}

} // namespace

Json ValueOf(Velluto &program, std::string_view name)
{
    const std::size_t bracket = std::min(name.find('('), name.size());
    const std::string_view plain = name.substr(0, bracket);
    const NamedValue *const found = Find(plain);
    if (found == nullptr || (bracket < name.size() && name.back() != ')')) {
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
    std::ranges::transform(PlayerValues(), std::back_inserter(names), &NamedValue::name);
    return names;
}

} // namespace velluto::driver
