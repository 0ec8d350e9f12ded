#include "program/Velluto.h"

#include "app/Catalogue.h"
#include "app/SettingsFile.h"
#include "app/StatusBar.h"
#include "edit/Copy.h"
#include "edit/Cut.h"
#include "edit/EditMenu.h"
#include "edit/Paste.h"
#include "edit/Printing.h"
#include "files/Banks.h"
#include "files/NaturalSize.h"
#include "files/Opening.h"
#include "files/Saving.h"
#include "files/frmStyUserAll.h"
#include "midi/DeviceMenus.h"
#include "midi/MidiIn.h"
#include "midi/MidiOut.h"
#include "midi/frmMIDISetup.h"
#include "midi/frmMsgEx.h"
#include "notes/frmAbout.h"
#include "notes/frmBloccoNote.h"
#include "notes/frmGuida.h"

namespace velluto {

namespace {

// The frame's rectangle before the settings say another, twips.
constexpr Place kDesignPlace{0, 0, 14400, 9900};

void mnuFile_Click(Velluto &program)
{
    Modulo1 &app = program.app;
    frmMain &menu = app.frame;
    program.files.OpenChainCode = 0;
    menu.mnuSalva.enabled = false;
    menu.mnuSalvaAs.enabled = false;
    menu.mnuChiudi.enabled = false;
    menu.mnuStampa.enabled = false;
    const Form *window = app.children.Active();
    if (app.children.ChildCount == 0 || window == nullptr) {
        return;
    }
    menu.mnuChiudi.enabled = true;
    app.ViewKind = window->Tag.Kind();
    // Bank views and tools can be closed, not saved.
    if (TypeOfKind(program.files, app.ViewKind) == nullptr) {
        return;
    }
    menu.mnuStampa.enabled = true;
    if (window->Tag.Slot() != kFirstBankSlot) { // the first user bank of each type is kept from it
        menu.mnuSalva.enabled = true;
        menu.mnuSalvaAs.enabled = true;
    }
}

void ChooseLanguage(Modulo1 &app, MenuEntry &chosen, std::uint8_t lingua)
{
    if (chosen.checked) {
        return;
    }
    app.settings.Lingua = lingua;
    app.frame.mnuItaliano.checked = lingua == Language::Italian;
    app.frame.mnuInglese.checked = lingua == Language::English;
    // In the language of the run, which stays what it was.
    app.messages.ShowMessage(MessageNo::LanguageChangesLater, app.messages.Text(TextId::ChangeLanguage), {});
}

void mnuVisBarraStato_Click(frmMain &menu)
{
    menu.mnuVisBarraStato.checked = !menu.mnuVisBarraStato.checked;
    menu.Picture1.visible = menu.mnuVisBarraStato.checked.Get();
}

void mnuChiudi_Click(Modulo1 &app)
{
    if (Form *window = app.children.Active()) {
        app.children.Unload(*window);
    }
}

// The program's last acts. Thru is disconnected after both closes, on handles that are no longer open, and its result
// is nobody's business.
void frmMain_Unload(Velluto &program)
{
    Modulo1 &app = program.app;
    app.CurrentOperation = app.messages.Text(TextId::ClosingMidiOut);
    if (program.midi.MidiOutOpen) {
        CloseMidiOut(program.midi);
    }
    if (program.midi.MidiInOpen) {
        CloseMidiIn(program.midi);
    }
    if (app.settings.ThruOn) {
        ThruDisconnect(program.midi);
    }
    WriteSettings(app);
}

// Each entry of an array calls the command with its own number.
template <auto Click, class Entries, class State>
void AttachEach(Entries &entries, State &state)
{
    for (MenuEntry &entry : entries) {
        entry.Click = [&state, index = entry.index()] { Click(state, index); };
    }
}

void AttachFrame(Velluto &program)
{
    Modulo1 &app = program.app;
    frmMain &frame = app.frame;
    frame.place = kDesignPlace;
    frame.OnLoad = [&program] { frmMain_Load(program); };
    frame.OnUnload = [&program] { frmMain_Unload(program); };
    frame.OnQueryUnload = [&app] {
        app.children.ClosingAll = true;
        return true;
    };
    frame.OnResize = [&app] {
        if (!app.children.RestoringLayout) {
            LayOutStatusBar(app);
        }
    };
    frame.TimerOrologio.Tick = [&app] { TimerOrologio_Timer(app); };
}

void AttachFileMenu(Velluto &program)
{
    frmMain &menu = program.app.frame;
    FilesState &files = program.files;
    menu.mnuFile.Drop = [&program] { mnuFile_Click(program); };
    menu.mnuPcgNuovo64.Click = [&files] { mnuPcgNuovo64_Click(files); };
    menu.mnuPcgNuovo128.Click = [&files] { mnuPcgNuovo128_Click(files); };
    menu.mnuStyNuovo.Click = [&files] { mnuStyNuovo_Click(files); };
    menu.mnuPrfNuovo.Click = [&files] { mnuPrfNuovo_Click(files); };
    menu.mnuPcgApri.Click = [&files] { mnuPcgApri_Click(files); };
    menu.mnuStyApri.Click = [&files] { mnuStyApri_Click(files); };
    menu.mnuPrfApri.Click = [&files] { mnuPrfApri_Click(files); };
    menu.mnuChiudi.Click = [&program] { mnuChiudi_Click(program.app); };
    menu.mnuSalva.Click = [&files] { mnuSalva_Click(files); };
    menu.mnuSalvaAs.Click = [&files] { mnuSalvaAs_Click(files); };
    menu.mnuStampa.Click = [&files] { mnuStampa_Click(files); };
    menu.mnuExit.Click = [&program] { CloseFrame(program); };
    AttachEach<mnuRecentFile_Click>(menu.mnuRecentFile, files);
}

void AttachEditMenu(Velluto &program)
{
    frmMain &menu = program.app.frame;
    FilesState &files = program.files;
    menu.mnuModifica.Drop = [&files] { mnuModifica_Click(files); };
    menu.mnuIngrandisci.Click = [&files] { mnuIngrandisci_Click(files); };
    menu.mnuTaglia.Click = [&files] { mnuTaglia_Click(files); };
    menu.mnuCopia.Click = [&files] { mnuCopia_Click(files); };
    menu.mnuIncolla.Click = [&files] { mnuIncolla_Click(files); };
    AttachEach<mnuMIDIStp_Click>(menu.mnuMIDIStp, files);
}

void AttachViewMenu(Velluto &program)
{
    frmMain &menu = program.app.frame;
    FilesState &files = program.files;
    AttachEach<mnuPcgUser_Click>(menu.mnuPcgUser, files);
    AttachEach<mnuStyUser_Click>(menu.mnuStyUser, files);
    AttachEach<mnuStyDirectHD_Click>(menu.mnuStyDirectHD, files);
    AttachEach<mnuPrfUser_Click>(menu.mnuPrfUser, files);
    for (int kind = ViewKind::StyleOverview; kind <= ViewKind::StyleOverviewLast; ++kind) {
        StyleOverviewEntry(menu, kind).Click = [&files, kind] { ShowStyleOverview(files, kind); };
    }
    menu.mnuPrfUserAll.Click = [&files] { mnuPrfUserAll_Click(files); };
    menu.mnuMsgEx.Click = [&program] { mnuMsgEx_Click(program.midi); };
    menu.mnuTastiera.Click = [&program] { mnuTastiera_Click(program.keyboard); };
    menu.mnuMidiPlayer.Click = [&program] { mnuMidiPlayer_Click(program.player); };
}

void AttachFactoryBanks(Velluto &program)
{
    frmMain &menu = program.app.frame;
    BankState &banks = program.banks;
    for (int kind = ViewKind::BankA; kind <= ViewKind::BankF; ++kind) {
        FactoryBankEntry(menu, kind).Click = [&banks, kind] { ShowFactoryBank(banks, kind); };
    }
    AttachEach<mnuSty_Click>(menu.mnuSty, banks);
}

void AttachPreferences(Velluto &program)
{
    Modulo1 &app = program.app;
    frmMain &menu = app.frame;
    MidiState &midi = program.midi;
    menu.mnuItaliano.Click = [&app] { ChooseLanguage(app, app.frame.mnuItaliano, Language::Italian); };
    menu.mnuInglese.Click = [&app] { ChooseLanguage(app, app.frame.mnuInglese, Language::English); };
    for (MenuEntry *above : {&menu.mnuPreferenze, &menu.mnuMIDIOut, &menu.mnuMIDIIn}) {
        above->Drop = [&midi] { ShowNewDevices(midi); };
    }
    AttachEach<mnuDevMIDIOut_Click>(menu.mnuDevMIDIOut, midi);
    AttachEach<mnuDevMIDIIn_Click>(menu.mnuDevMIDIIn, midi);
    menu.mnuMIDIThru.Click = [&midi] { mnuMIDIThru_Click(midi); };
    menu.mnuMIDISetup.Click = [&midi] { mnuMIDISetup_Click(midi); };
    menu.mnuVisBarraStato.Click = [&menu] { mnuVisBarraStato_Click(menu); };
}

void AttachNotes(Velluto &program)
{
    frmMain &menu = program.app.frame;
    NotesState &notes = program.notes;
    menu.mnuBloccoNote.Click = [&notes] { mnuBloccoNote_Click(notes); };
    menu.mnuGuida.Click = [&notes] { mnuGuida_Click(notes); };
    menu.mnuInfo.Click = [&notes] { mnuInfo_Click(notes); };
}

void AttachWindowMenu(Modulo1 &app)
{
    constexpr int kCascade = 0;
    constexpr int kTileHorizontally = 1;
    constexpr int kTileVertically = 2;
    app.frame.mnuWindow.listsWindows = true;
    app.frame.mnuSovrapponi.Click = [&app] { app.children.Arrange(kCascade); };
    app.frame.mnuAffiancaOrizz.Click = [&app] { app.children.Arrange(kTileHorizontally); };
    app.frame.mnuAffiancaVert.Click = [&app] { app.children.Arrange(kTileVertically); };
}

} // namespace

Velluto::Velluto(Ports ports, Face &face)
    : app(ports, face), midi(app), files(app), recall(app, midi, files), banks{recall, {}, {}}, keyboard(midi), notes(app), player(app)
{
    files.services.SelectOnInstrument = [this](Form &window, int row) { SelectOnInstrument(recall, window, row); };
    files.services.SelectFromOverview = [this](Form &window, int list) { SelectFromOverview(recall, window, list); };
    AttachFrame(*this);
    AttachFileMenu(*this);
    AttachEditMenu(*this);
    AttachViewMenu(*this);
    AttachFactoryBanks(*this);
    AttachPreferences(*this);
    AttachNotes(*this);
    AttachWindowMenu(app);
}

bool CloseFrame(Velluto &program)
{
    Modulo1 &app = program.app;
    if (!app.frame.IsLoaded()) {
        return true;
    }
    if (!app.frame.Form_QueryUnload() || !app.children.UnloadAll()) {
        return false;
    }
    app.frame.Unload();
    app.face.FrameClosed(app.frame);
    return true;
}

} // namespace velluto
