#include "banks/Recall.h"

#include "banks/BankLayout.h"
#include "files/OverviewForm.h"
#include "files/Slots.h"
#include "files/WindowRole.h"
#include "midi/MidiOut.h"
#include "midi/Roles.h"
#include "view/NumberedLists.h"
#include "view/Raised.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace velluto {

namespace {

// Where the instrument keeps what a list shows.

// The pages of a factory Style list: sixteen rows each, headings between them.
struct StylePage {
    int firstRow;
    int lastRow;
};
constexpr std::array<StylePage, 8> kStylePages = {{{2, 17}, {21, 36}, {39, 54}, {58, 73}, {76, 91}, {95, 110}, {113, 128}, {132, 147}}};

// Bank select MSB of what the user can load.
constexpr int kMsbUserPrograms = 121;
constexpr int kMsbStyles = 0;
constexpr int kMsbPerformances = 1;

// Bank select LSB.
constexpr int kLsbProgramUser1 = 64;
constexpr int kLsbStyleList2 = 8;      // the second factory Style list begins here
constexpr int kLsbStyleSlotOffset = 8; // slot 9 (User 1) is LSB 17, slot 20 (Direct HD 9) LSB 28
constexpr int kLsbStyleUserOffset = 16;
constexpr int kLsbDirectHdOffset = 19;

bool Between(int value, int low, int high)
{
    return value >= low && value <= high;
}

// Leaves the window's role in the scratch variable, where it stays as it was for windows that have none. False where
// nothing may be sent.
bool TakeWindowRole(RecallState &recall, const Form &window)
{
    const int kind = window.Tag.Kind();
    const int slot = window.Tag.Slot();
    std::optional<RolePlace> place = RolePlaceOf(recall.files, window);
    const bool isOverview = kind == ViewKind::PerformanceOverview || IsStyleOverview(kind);
    const bool isOutside = kind == ViewKind::PerformanceFile && !IsBankSlot(slot, kLastPrfUserSlot);
    if (isOutside && slot <= kLastPrfUserSlot) {
        place = RolePlace{&recall.files.performances, slot}; // a Performance file's role is read as a bank's is
    }
    if (place) {
        recall.roleScratch = ReadRole(recall.files, *place);
    } else if (isOverview) {
        return false; // no row is selected
    }
    // A file is no bank of the instrument: its bank number would be no data byte, so it stays silent.
    return !isOutside;
}

// What addresses a sound, style or performance on the instrument.
struct Address {
    int msb = 0;
    int lsb = 0;
    int program = 0;
};

std::optional<Address> FactoryProgramAddress(const FactoryTables &tables, int kind, int row)
{
    for (const FactoryBank &bank : kFactoryBanks) {
        const int number = row + bank.records.first;
        if (bank.kind == kind && Between(number, 1, kPcgTableRecords)) {
            const std::string &record = tables.PcgTable.at(static_cast<std::size_t>(number));
            return Address{NumberIn(record, PcgField::Msb), NumberIn(record, PcgField::Lsb), NumberIn(record, PcgField::Program)};
        }
    }
    return std::nullopt;
}

// A row that lies on no page gives the list's first bank and program 0.
Address FactoryStyleAddress(int kind, int row)
{
    Address address{kMsbStyles, kind == ViewKind::FactoryStyles2 ? kLsbStyleList2 : 0, 0};
    for (std::size_t page = 0; page < kStylePages.size(); ++page) {
        if (Between(row, kStylePages[page].firstRow, kStylePages[page].lastRow)) {
            address.lsb += static_cast<int>(page);
            address.program = row - kStylePages[page].firstRow;
        }
    }
    return address;
}

Address UserProgramAddress(int slot, int row)
{
    const bool isBank = IsBankSlot(slot, kLastPcgUserSlot);
    return {kMsbUserPrograms, isBank ? kLsbProgramUser1 + slot - kFirstBankSlot : 0, row};
}

Address UserStyleAddress(int slot, int row)
{
    if (!IsBankSlot(slot, kLastDirectHdSlot)) {
        return {};
    }
    return {kMsbStyles, slot + kLsbStyleSlotOffset, row};
}

Address StyleOverviewAddress(const FilesState &files, int kind, int row)
{
    if (kind == ViewKind::StyleOverview) {
        return {kMsbStyles, files.styles.current + kLsbStyleUserOffset, row};
    }
    const int overview = kind - ViewKind::StyleOverview - 1; // 0 to 2
    return {kMsbStyles, files.styles.current + kLsbDirectHdOffset + kDirectHdInGroup * overview, row};
}

// Nothing where no such place exists on the instrument.
std::optional<Address> AddressOf(const RecallState &recall, int kind, int slot, int row)
{
    if (IsFactoryPrograms(kind)) {
        return FactoryProgramAddress(recall.tables, kind, row);
    }
    if (IsStyleOverview(kind)) {
        return StyleOverviewAddress(recall.files, kind, row);
    }
    switch (kind) {
    case ViewKind::ProgramFile:
        return UserProgramAddress(slot, row);
    case ViewKind::FactoryStyles1:
    case ViewKind::FactoryStyles2:
        return FactoryStyleAddress(kind, row);
    case ViewKind::StyleFile:
        return UserStyleAddress(slot, row);
    case ViewKind::PerformanceFile:
        if (!IsBankSlot(slot, kLastPrfUserSlot)) {
            return std::nullopt;
        }
        return Address{kMsbPerformances, slot - kFirstBankSlot, row};
    case ViewKind::PerformanceOverview:
        return Address{kMsbPerformances, recall.files.performances.current - 1, row};
    default:
        return Address{};
    }
}

// A number beyond seven bits, as a damaged factory table may hold, must not reach the line as a status byte.
int DataByte(int value)
{
    return static_cast<int>(static_cast<unsigned>(value) & 127U);
}

} // namespace

int ResolveChannel(RecallState &recall, Form &window)
{
    recall.app.ViewKind = window.Tag.Kind();
    recall.app.slot = window.Tag.Slot();
    if (!TakeWindowRole(recall, window)) {
        return kNoChannel;
    }
    return ChannelForRole(recall.app.settings, recall.roleScratch).value_or(kNoChannel);
}

void RecallItem(RecallState &recall, const WindowTag &tag, int row)
{
    const int channel = recall.app.settings.LastChannel;
    const std::optional<Address> address = AddressOf(recall, tag.Kind(), tag.Slot(), row);
    if (!address || channel >= kMidiChannels) {
        return;
    }
    SendGroup(recall.midi, {{
                               {MidiStatus::kControlChange, channel, MidiController::kBankMsb, DataByte(address->msb)},
                               {MidiStatus::kControlChange, channel, MidiController::kBankLsb, DataByte(address->lsb)},
                               {MidiStatus::kProgramChange, channel, DataByte(address->program)},
                           }});
}

void SelectOnInstrument(RecallState &recall, Form &window, int row)
{
    const int channel = ResolveChannel(recall, window);
    if (channel == kNoChannel) {
        return; // LastChannel stays where the last recall left it
    }
    recall.app.settings.LastChannel = static_cast<std::uint8_t>(channel);
    recall.midi.MonitorEnabled = true;
    RecallItem(recall, window.Tag, row);
}

void SelectFromOverview(RecallState &recall, Form &window, int list)
{
    if (recall.clearingOtherLists) {
        return;
    }
    const NumberedLists<kPrfOverviewLists> lists(window, "List1"); // the Style overviews have the first three of them
    // Told by the lists, not by the Tag, which a window whose load has stopped lacks.
    const bool performances = lists.At(kPrfOverviewLists) != nullptr;
    const ListBox *clicked = lists.At(list);
    // The whole row is compared, with its blanks: no row as built is ignored, an empty first place neither.
    if (clicked == nullptr || clicked->Row(clicked->ListIndex()) == (performances ? "1" : "3")) {
        return;
    }
    {
        const Raised clearing(recall.clearingOtherLists);
        for (int other = 1; other <= (performances ? kPrfOverviewLists : kStyOverviewLists); ++other) {
            if (other != list && lists.At(other) != nullptr) {
                lists.At(other)->ClearSelection();
            }
        }
    }
    if (performances) {
        recall.midi.MonitorEnabled = true; // here already, whatever the channel will be
    }
    const int channel = ResolveChannel(recall, window);
    if (channel == kNoChannel) {
        return;
    }
    recall.app.settings.LastChannel = static_cast<std::uint8_t>(channel);
    recall.midi.MonitorEnabled = true;
    (performances ? recall.files.performances.current : recall.files.styles.current) = list;
    RecallItem(recall, window.Tag, clicked->ListIndex());
}

} // namespace velluto
