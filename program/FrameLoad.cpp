#include "program/Velluto.h"

#include "app/Catalogue.h"
#include "app/RecentFiles.h"
#include "app/StatusBar.h"
#include "files/Slots.h"
#include "midi/DeviceMenus.h"

#include <array>
#include <initializer_list>
#include <span>

namespace velluto {

namespace {

void ResetCounters(Velluto &program)
{
    program.app.children.ChildCount = 0;
    for (DocumentType &type : program.files.types) {
        type.openFlags.fill(false);
    }
}

// The caption of an entry as the menu tree tells it, and of all that stands below it.
void SetCaptions(const Messages &messages, MenuEntry &entry)
{
    const MenuCaption &words = entry.text;
    entry.caption = (words.id != 0 ? messages.Text(words.id) : std::string()) + std::string(words.fixed);
    for (MenuEntry *child : entry.children()) {
        SetCaptions(messages, *child);
    }
}

void LoadFileMenu(Modulo1 &app)
{
    frmMain &menu = app.frame;
    SetCaptions(app.messages, menu.mnuFile);
    menu.mnuChiudi.enabled = false;
    menu.mnuSep16.visible = false;
    for (MenuEntry &entry : menu.mnuRecentFile) {
        entry.visible = false;
    }
    if (!app.settings.RecentTable[1].Path.IsEmptyEntry()) {
        menu.mnuSep16.visible = true;
        RefreshRecentMenu(app);
    }
}

void LoadEditMenu(Modulo1 &app)
{
    frmMain &menu = app.frame;
    SetCaptions(app.messages, menu.mnuModifica);
    menu.mnuTaglia.enabled = false;
    menu.mnuCopia.enabled = false;
    menu.mnuIncolla.enabled = false;
    menu.mnuModifica.enabled = false;
}

// A bank that is tied to a file can be opened, and its entry names the file. True where it is.
bool LoadBankEntry(MenuEntry &entry, const DocRecord &record)
{
    const std::string path = record.Path.Trimmed();
    entry.enabled = !path.empty();
    if (!path.empty()) {
        entry.caption = entry.caption.Get() + " " + FileNameOf(path);
    }
    return !path.empty();
}

// The same for all banks of one name, the first of which stands in firstSlot. What leads to any of them can be chosen where one can.
template <class Entries>
void LoadBanks(Entries &entries, std::span<const DocRecord> table, int firstSlot, std::initializer_list<MenuEntry *> leading)
{
    for (MenuEntry *entry : leading) {
        entry->enabled = false;
    }
    for (MenuEntry &entry : entries) {
        if (LoadBankEntry(entry, table[static_cast<std::size_t>(firstSlot + entry.index() - Entries::first())])) {
            for (MenuEntry *all : leading) {
                all->enabled = true;
            }
        }
    }
}

void LoadDirectHdGroups(frmMain &menu)
{
    const std::array<MenuEntry *, 3> groups{&menu.mnuStyDirectHD123, &menu.mnuStyDirectHD456, &menu.mnuStyDirectHD789};
    for (MenuEntry *group : groups) {
        group->enabled = false;
    }
    for (const MenuEntry &entry : menu.mnuStyDirectHD) {
        if (entry.enabled) {
            groups.at(static_cast<std::size_t>((entry.index() - 1) / kDirectHdInGroup))->enabled = true;
        }
    }
}

void LoadViewMenu(Modulo1 &app)
{
    frmMain &menu = app.frame;
    const Settings &settings = app.settings;
    SetCaptions(app.messages, menu.mnuView);
    LoadBanks(menu.mnuPcgUser, settings.PcgDocTable, kFirstPcgUserSlot, {});
    LoadBanks(menu.mnuStyUser, settings.StyDocTable, kFirstStyUserSlot, {&menu.mnuStyUserAll});
    LoadBanks(menu.mnuStyDirectHD, settings.StyDocTable, kFirstDirectHdSlot, {&menu.mnuStyDirectHD19});
    LoadDirectHdGroups(menu);
    LoadBanks(menu.mnuPrfUser, settings.PrfDocTable, kFirstPrfUserSlot, {&menu.mnuPrfUserAll, &menu.mnuPrfUser120});
    SetCaptions(app.messages, menu.mnuMidiPlayer);
}

void LoadPreferences(Velluto &program)
{
    frmMain &menu = program.app.frame;
    SetCaptions(program.app.messages, menu.mnuPreferenze);
    // The entry starts disabled in every run: a later device choice enables it.
    menu.mnuMIDIThru.checked = program.midi.ThruCheckedAtLoad;
    menu.mnuMIDIThru.enabled = program.midi.ThruEnabledAtLoad;
    FillDeviceMenus(program.midi);
}

void LoadRemainingMenus(Modulo1 &app)
{
    frmMain &menu = app.frame;
    SetCaptions(app.messages, menu.mnuBloccoNote);
    SetCaptions(app.messages, menu.mnuHelp);
    SetCaptions(app.messages, menu.mnuWindow);
    menu.mnuWindow.enabled = false;
}

void LoadCheckMarks(Velluto &program)
{
    frmMain &menu = program.app.frame;
    const Settings &settings = program.app.settings;
    program.midi.MonitorEnabled = false;
    menu.mnuItaliano.checked = settings.Lingua == Language::Italian;
    menu.mnuInglese.checked = settings.Lingua != Language::Italian;
    menu.mnuMIDIThru.checked = settings.ThruOn;
    menu.mnuVisBarraStato.checked = settings.StatusBarOn;
    menu.Picture1.visible = settings.StatusBarOn;
}

// Only a normal frame takes its rectangle from the settings; a state that no window has leaves it alone.
void RestorePlacement(Modulo1 &app)
{
    const WindowPlacement &entry = app.settings.PlacementTable[PlacementEntry::Frame];
    switch (entry.State) {
    case static_cast<std::uint8_t>(WindowState::Normal):
        app.frame.windowState = WindowState::Normal;
        app.frame.place = Place{entry.Left, entry.Top, entry.Width, entry.Height};
        break;
    case static_cast<std::uint8_t>(WindowState::Minimised):
        app.frame.windowState = WindowState::Minimised;
        break;
    case static_cast<std::uint8_t>(WindowState::Maximised):
        app.frame.windowState = WindowState::Maximised;
        break;
    default:
        break;
    }
    LayOutStatusBar(app);
}

} // namespace

void frmMain_Load(Velluto &program)
{
    Modulo1 &app = program.app;
    ResetCounters(program);
    app.frame.Picture1.visible = app.settings.StatusBarOn;
    // The title line stays Italian in every language.
    app.TitleLine = std::string(LoadResString(TextId::ProgramTitleLine)).append(", ").append(LoadResString(TextId::Version));
    SetUpStatusBar(app);
    app.frame.caption = std::string(kProgramTitle).append(" - ").append(kProgramName);
    LoadFileMenu(app);
    LoadEditMenu(app);
    LoadViewMenu(app);
    LoadPreferences(program);
    ReadFactoryTables(app.ports.files, app.paths.PcgTablePath, app.paths.StyTablePath, program.recall.tables);
    LoadRemainingMenus(app);
    LoadCheckMarks(program);
    RestorePlacement(app);
    RefreshWindowMenu(app);
}

} // namespace velluto
