#include "program/FrameLoad.h"

#include "app/Catalogue.h"
#include "app/RecentFiles.h"
#include "app/StatusBar.h"
#include "files/Slots.h"
#include "midi/DeviceMenus.h"

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

template <class Table>
const DocRecord &Slot(const Table &table, int slot)
{
    return table.at(static_cast<std::size_t>(slot));
}

void LoadProgramBanks(frmMain &menu, const Settings &settings)
{
    for (MenuEntry &entry : menu.mnuPcgUser) {
        LoadBankEntry(entry, Slot(settings.PcgDocTable, entry.index()));
    }
}

void LoadStyleBanks(frmMain &menu, const Settings &settings)
{
    menu.mnuStyUserAll.enabled = false;
    for (MenuEntry &entry : menu.mnuStyUser) {
        if (LoadBankEntry(entry, Slot(settings.StyDocTable, entry.index()))) {
            menu.mnuStyUserAll.enabled = true;
        }
    }
}

void LoadDirectHdBanks(frmMain &menu, const Settings &settings)
{
    const std::array<MenuEntry *, 3> groups{&menu.mnuStyDirectHD123, &menu.mnuStyDirectHD456, &menu.mnuStyDirectHD789};
    menu.mnuStyDirectHD19.enabled = false;
    for (MenuEntry *group : groups) {
        group->enabled = false;
    }
    for (MenuEntry &entry : menu.mnuStyDirectHD) {
        const int before = entry.index() - 1;
        if (LoadBankEntry(entry, Slot(settings.StyDocTable, kFirstDirectHdSlot + before))) {
            menu.mnuStyDirectHD19.enabled = true;
            groups.at(static_cast<std::size_t>(before / kDirectHdInGroup))->enabled = true;
        }
    }
}

void LoadPerformanceBanks(frmMain &menu, const Settings &settings)
{
    menu.mnuPrfUserAll.enabled = false;
    menu.mnuPrfUser120.enabled = false;
    for (MenuEntry &entry : menu.mnuPrfUser) {
        if (LoadBankEntry(entry, Slot(settings.PrfDocTable, kFirstPrfUserSlot + entry.index() - 1))) {
            menu.mnuPrfUserAll.enabled = true;
            menu.mnuPrfUser120.enabled = true;
        }
    }
}

void LoadViewMenu(Modulo1 &app)
{
    SetCaptions(app.messages, app.frame.mnuView);
    LoadProgramBanks(app.frame, app.settings);
    LoadStyleBanks(app.frame, app.settings);
    LoadDirectHdBanks(app.frame, app.settings);
    LoadPerformanceBanks(app.frame, app.settings);
    SetCaptions(app.messages, app.frame.mnuMidiPlayer);
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
