#include "desktop/Tips.h"

#include "app/ChildForm.h"
#include "app/ViewKind.h"
#include "desktop/QtText.h"
#include "files/DocumentForm.h"
#include "files/OverviewForm.h"
#include "files/Slots.h"
#include "platform/sequencer/MidiFile.h"
#include "player/frmMIDIPlayer.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <optional>

namespace velluto {

namespace {

QString Tr(const char *english)
{
    return QCoreApplication::translate("Tips", english);
}

// Of one control, or of one in an array of controls.
struct Tip {
    const char *form;
    const char *control; // with its index, where it has one
    const char *words;
};

constexpr std::array<Tip, 24> kTips{{
    {"frmTastiera", "Label2(0)", "Volume (controller 7)"},
    {"frmTastiera", "Label2(1)", "Place between left and right (controller 10)"},
    {"frmTastiera", "Label2(2)", "Velocity of the notes that begin"},
    {"frmTastiera", "Label2(3)", "Velocity of the notes that end"},
    {"frmTastiera", "Label2(4)", "Attack time (controller 73)"},
    {"frmTastiera", "Label2(5)", "Release time (controller 72)"},
    {"frmTastiera", "Label2(6)", "Pitch bend"},
    {"frmTastiera", "Label2(7)", "Pitch modulation (controller 1)"},
    {"frmTastiera", "Label2(8)", "Cut-off modulation (controller 2)"},
    {"frmTastiera", "Label2(9)", "Depth of the reverb (controller 91)"},
    {"frmTastiera", "Label2(10)", "Depth of the chorus (controller 93)"},
    {"frmTastiera", "Combo1", "Notes that sound go on on the old channel: press All Notes Off before you change it"},
    {"frmTastiera", "Label1(6)", "Notes that sound go on on the old channel: press All Notes Off before you change it"},
    {"frmTastiera", "CheckClickKey", "On: a press plays. Off: the pointer plays what it passes over"},
    {"frmTastiera", "CheckHoldNote", "A press latches a note, a second one ends it"},
    {"frmTastiera", "CommHoldChord", "Keeps the latched notes as a chord, which each key then moves"},
    {"frmMIDIPlayer", "Picture1", "Where the song is. Back and Forward move it by 5%; drag the two pointers to play a part"},
    {"frmMIDIPlayer", "Line1", "Where the song is. Back and Forward move it by 5%; drag the two pointers to play a part"},
    {"frmMIDIPlayer", "Picture2", "Where a play begins: drag it, or the Start slider"},
    {"frmMIDIPlayer", "Picture3", "Where a play ends: drag it, or the Stop slider"},
    {"frmMIDIPlayer", "CommRep", "Plays the part between the two pointers again and again"},
    {"frmMIDIPlayer", "CommPlayAll", "Plays all files of the list, one after the other"},
    {"frmMIDIPlayer", "LabTrackPosition", "In quarters of a beat, and in hundredths of the song"},
    {"frmMIDIPlayer", "Label2(1)", "In quarters of a beat, and in hundredths of the song"},
}};

// The sliders say what their titles say.
std::string NameToLookUp(const Control &control)
{
    const bool isSlider = control.form().name() == "frmTastiera" && control.name() == "VScroll";
    return isSlider ? "Label2(" + std::to_string(control.index()) + ")" : control.FullName();
}

QString FixedTip(const Control &control)
{
    const std::string name = NameToLookUp(control);
    const auto *const found =
        std::ranges::find_if(kTips, [&](const Tip &tip) { return control.form().name() == tip.form && name == tip.control; });
    return found == kTips.end() ? QString() : Tr(found->words);
}

// The role that a list's sounds are selected with; nothing for a list that selects none.
std::optional<int> RoleOf(const ListBox &list)
{
    const auto *window = dynamic_cast<const ChildForm *>(&list.form());
    if (window == nullptr) {
        return std::nullopt;
    }
    const Settings &settings = window->app.settings;
    const int kind = window->Tag.Kind();
    if (IsFactoryPrograms(kind) || IsFactoryStyles(kind)) {
        return settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)).Role;
    }
    if (IsStyleOverview(kind)) {
        const int slot = kFirstBankSlot + kStyOverviewLists * (kind - ViewKind::StyleOverview) + list.index() - 1;
        return settings.StyDocTable.at(static_cast<std::size_t>(slot)).Role;
    }
    if (kind == ViewKind::PerformanceOverview) {
        return settings.PrfDocTable.at(static_cast<std::size_t>(list.index())).Role; // roles of its own
    }
    const auto *document = dynamic_cast<const DocumentForm *>(window);
    const int slot = window->Tag.Slot();
    if (document != nullptr && IsBankSlot(slot, document->Type().lastBank)) {
        return document->Type().table[static_cast<std::size_t>(slot)].Role;
    }
    return std::nullopt;
}

// Which bank an overview's list is.
QString BankOf(const ListBox &list)
{
    const int kind = list.form().Tag.Kind();
    if (kind > ViewKind::StyleOverview && kind <= ViewKind::StyleOverviewLast) {
        return QStringLiteral("Direct HD %1").arg(kStyOverviewLists * (kind - ViewKind::StyleOverview - 1) + list.index());
    }
    if (kind == ViewKind::StyleOverview || kind == ViewKind::PerformanceOverview) {
        return QStringLiteral("User %1").arg(list.index());
    }
    return {};
}

QString TipOfList(const ListBox &list)
{
    QStringList lines;
    if (const QString bank = BankOf(list); !bank.isEmpty()) {
        lines.append(bank);
    }
    if (const std::optional<int> role = RoleOf(list); role && *role < kRoleCount) {
        QString line = Tr("role: %1").arg(FromUtf8(kRoleNames.at(static_cast<std::size_t>(*role))));
        if (*role > 0) {
            line += QStringLiteral(" (%1)").arg(WordsOfRole(*role));
        }
        lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

// How long the open file lasts.
QString LengthInMinutes(const frmMIDIPlayer &player)
{
    if (player.MMControl1.Mode() == SequencerMode::kNotReady) {
        return {};
    }
    const MidiFile file = ReadMidiFile(player.app.ports.files, player.MMControl1.FileName);
    const auto seconds = static_cast<int>((file.song.duration + kSecond / 2) / kSecond);
    return seconds == 0 ? QString()
                        : Tr("%1 minutes").arg(QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0')));
}

// The windows of a menu's commands.
struct Shown {
    std::string_view entry;
    int kind;
    int slotBefore; // the slot of the entry numbered 1 less 1, kNoSlot for an entry without slots
};

constexpr int kNoSlot = -1;
constexpr std::array<Shown, 21> kShown{{
    {"mnuBankA", ViewKind::BankA, kNoSlot},
    {"mnuBankB", ViewKind::BankA + 1, kNoSlot},
    {"mnuBankC", ViewKind::BankA + 2, kNoSlot},
    {"mnuBankD", ViewKind::BankA + 3, kNoSlot},
    {"mnuBankE", ViewKind::BankA + 4, kNoSlot},
    {"mnuBankF", ViewKind::BankF, kNoSlot},
    {"mnuSty(1)", ViewKind::FactoryStyles1, kNoSlot},
    {"mnuSty(2)", ViewKind::FactoryStyles2, kNoSlot},
    {"mnuPcgUser", ViewKind::ProgramFile, 0},
    {"mnuStyUser", ViewKind::StyleFile, 0},
    {"mnuStyDirectHD", ViewKind::StyleFile, kFirstDirectHdSlot - 1},
    {"mnuPrfUser", ViewKind::PerformanceFile, kFirstPrfUserSlot - 1},
    {"mnuStyUserAll", ViewKind::StyleOverview, kNoSlot},
    {"mnuStyDirectHD123", ViewKind::StyleOverview + 1, kNoSlot},
    {"mnuStyDirectHD456", ViewKind::StyleOverview + 2, kNoSlot},
    {"mnuStyDirectHD789", ViewKind::StyleOverviewLast, kNoSlot},
    {"mnuPrfUserAll", ViewKind::PerformanceOverview, kNoSlot},
    {"mnuMsgEx", ViewKind::Monitor, kNoSlot},
    {"mnuTastiera", ViewKind::Keyboard, kNoSlot},
    {"mnuMIDISetup", ViewKind::ChannelSetup, kNoSlot},
    {"mnuGuida", ViewKind::Guide, kNoSlot},
}};

bool IsWindowOf(const MenuEntry &entry, const WindowTag &tag)
{
    const std::string whole = entry.FullName();
    return std::ranges::any_of(kShown, [&](const Shown &shown) {
        if (shown.slotBefore == kNoSlot) {
            return whole == shown.entry && tag.Kind() == shown.kind;
        }
        return entry.name() == shown.entry && tag.Kind() == shown.kind && tag.Slot() == entry.index() + shown.slotBefore;
    });
}

} // namespace

QString WordsOfRole(int role)
{
    constexpr std::array<const char *, kRoleCount> kWords = {"no part",
                                                             "lower part",
                                                             "upper part 1",
                                                             "upper part 2",
                                                             "upper part 3",
                                                             "drums",
                                                             "percussion",
                                                             "bass",
                                                             "accompaniment 1",
                                                             "accompaniment 2",
                                                             "accompaniment 3",
                                                             "accompaniment 4",
                                                             "accompaniment 5",
                                                             "global channel",
                                                             "control channel: it selects Styles and Performances"};
    return role >= 0 && role < kRoleCount ? Tr(kWords.at(static_cast<std::size_t>(role))) : QString();
}

QString TipOf(const Control &control)
{
    const QString own = FromUtf8(control.toolTip.Get());
    QString more = FixedTip(control);
    if (const auto *combo = dynamic_cast<const ComboBox *>(&control); combo != nullptr && control.form().name() == "frmMIDISetup") {
        more = WordsOfRole(combo->ListIndex);
    }
    return own.isEmpty() || more.isEmpty() ? own + more : more + QLatin1Char('\n') + own;
}

bool HasLiveTip(const Control &control)
{
    const bool isLength =
        control.form().name() == "frmMIDIPlayer" && (control.name() == "LabTrackLenght" || control.FullName() == "Label2(0)");
    return dynamic_cast<const ListBox *>(&control) != nullptr || isLength || control.form().name() == "frmMIDISetup";
}

QString LiveTipOf(const Control &control)
{
    if (const auto *list = dynamic_cast<const ListBox *>(&control)) {
        return TipOfList(*list);
    }
    const auto *player = dynamic_cast<const frmMIDIPlayer *>(&control.form());
    if (player != nullptr && HasLiveTip(control)) {
        return LengthInMinutes(*player);
    }
    if (control.form().name() == "frmMIDISetup") {
        return TipOf(control);
    }
    return {};
}

QString TipOfEntry(const MenuEntry &entry, const std::vector<Form *> &children)
{
    if (entry.name() == "mnuMIDIStp") {
        return WordsOfRole(entry.index());
    }
    const bool open = std::ranges::any_of(children, [&entry](const Form *form) { return IsWindowOf(entry, form->Tag); });
    return open && !entry.enabled ? Tr("open: see Window") : QString();
}

QString PlaceholderOf(const Control &control)
{
    return control.form().name() == "frmMIDIPlayer" && control.name() == "Text2" ? Tr("Name") : QString();
}

bool IsHeading(const MenuEntry &entry)
{
    return entry.parent() != nullptr && entry.children().empty() && !entry.IsSeparator() && !entry.Click;
}

bool IsTied(const Control &control)
{
    const bool ties = control.name() == "CommUser" || control.name() == "CommDirectHD";
    const std::string path = ties ? control.form().Tag.Path() : std::string();
    return !path.empty() && control.toolTip.Get().ends_with(": " + path);
}

} // namespace velluto
