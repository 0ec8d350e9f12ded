#include "player/frmMIDIPlayer.h"

#include "app/Catalogue.h"
#include "app/StoredPlace.h"
#include "player/Compilations.h"
#include "player/EndOfFile.h"
#include "player/FilePanel.h"
#include "player/FileSelection.h"
#include "player/Marks.h"
#include "player/PlayerClock.h"
#include "player/PlayerLayout.h"
#include "player/PlayerWords.h"
#include "player/Transport.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kTimePoints = 22; // the elapsed time is read from afar

} // namespace

frmMIDIPlayer::frmMIDIPlayer(PlayerState &player)
    : ChildForm("frmMIDIPlayer", kNoNumber, player.app, &player.app.frame.mnuMidiPlayer), state(player),
      MMControl1(*this, "MMControl1", player.app.ports.sequencer), entry_(player.app.settings.PlacementTable.at(PlacementEntry::Player))
{
    Dress();
    AttachHandlers();
    AttachTransport();
}

// What the form looks like before any handler has run.
void frmMIDIPlayer::Dress()
{
    constexpr std::array kGlyphs{Glyph::Previous, Glyph::Next, Glyph::Play, Glyph::Pause, Glyph::Back, Glyph::Forward, Glyph::Stop};
    for (int i = 0; i < kTransportButtons; ++i) {
        MCIPuls[i].glyph = kGlyphs.at(static_cast<std::size_t>(i));
    }
    for (Button *toggle : {&CommRep, &CommPlayAll, &CommSel}) {
        toggle->isToggle = true;
    }
    Frame1.caption = "Player";
    Frame2.caption = "Compilations";
    Frame3.caption = "Compilations - files MIDI";
    Frame4.caption = "Files MIDI";
    CommRep.caption = "Repeat";
    CommPlayAll.caption = "Play all";
    CommSel.caption = "Selezione Files";
    Label2[0].caption = "Lenght";
    Label2[1].caption = "Position";
    LabTrackLenght.caption = "0";
    LabTrackPosition.caption = "0";
    LabStart.caption = "Start";
    LabStop.caption = "Stop";
    Label1.bold = true;
    Label1.points = kTimePoints;
    Label1.alignment = Alignment::Right;
    Picture2.slider = &HScrollStart;
    Picture3.slider = &HScrollStop;
    Picture3.endsSection = true;
    ListComp.multiSelect = false;
    for (ListBox *list : {&ListComp, &File1, &ListMidiCorr, &ListMidiSel, &FileMidiSel}) {
        list->encoding = ListBox::Encoding::Utf8;
    }
    for (ListBox *list : {&ListComp, &ListMidiCorr, &ListMidiSel, static_cast<ListBox *>(&DirMidiSel)}) {
        list->font = kPlainFont;
        list->columns = 0;
    }
    Text2.font = kPlainFont;
    for (Control *hidden : std::initializer_list<Control *>{&Dir1, &File1, &FileMidiSel, &MMControl1}) {
        hidden->visible = false;
    }
    for (Button *button : {&CommCanc, &CommAdd, &CommAddAll, &CommRim, &CommRimAll}) {
        button->enabled = false;
    }
    for (Timer *timer : {&Timer1, &TimerComandi, &TimerListMidiCorr}) {
        timer->enabled = false;
    }
}

void frmMIDIPlayer::AttachHandlers()
{
    for (Frame *box : {&Frame1, &Frame2, &Frame3, &Frame4}) {
        box->MouseDown = [this](int button) { Form_MouseDown(button); };
    }
    ListComp.Click = [this] { ListComp_Click(*this); };
    Text2.Change = [this] { Text2_Change(*this); };
    CommNuovo.Click = [this] { CommNuovo_Click(*this); };
    CommCanc.Click = [this] { CommCanc_Click(*this); };
    CommAdd.Click = [this] { CommAdd_Click(*this); };
    CommAddAll.Click = [this] { CommAddAll_Click(*this); };
    CommRim.Click = [this] { CommRim_Click(*this); };
    CommRimAll.Click = [this] { CommRimAll_Click(*this); };
    ListMidiCorr.Click = [this] { ListMidiCorr_Click(*this); };
    ListMidiCorr.DblClick = [this] { ListMidiCorr_DblClick(*this); };
    ListMidiSel.Click = [this] { ListMidiSel_Click(*this); };
    ListMidiSel.DblClick = [this] { ListMidiSel_DblClick(*this); };
    DriveMidiSel.Change = [this] { DriveMidiSel_Change(*this); };
    DirMidiSel.Open = [this](const std::string &path) { (void)OpenFolder(*this, path); };
    DirMidiSel.DblClick = [this] { DirMidiSel_DblClick(*this); };
    CommSel.Click = [this] { CommSel_Click(*this); };
}

void frmMIDIPlayer::AttachTransport()
{
    for (Button &button : MCIPuls) {
        button.Click = [this, number = button.index()] { MCIPuls_Click(*this, number); };
    }
    CommRep.Click = [this] { CommRep_Click(*this); };
    CommPlayAll.Click = [this] { CommPlayAll_Click(*this); };
    HScrollStart.Change = [this] { HScrollStart_Change(*this); };
    HScrollStart.Scroll = [this] { HScrollStart_Scroll(*this); };
    HScrollStop.Change = [this] { HScrollStop_Change(*this); };
    HScrollStop.Scroll = [this] { HScrollStop_Scroll(*this); };
    MMControl1.Done = [this](int code) { MMControl1_Done(*this, code); };
    Timer1.Tick = [this] { Timer1_Timer(*this); };
    TimerComandi.Tick = [this] { TimerComandi_Timer(*this); };
    TimerListMidiCorr.Tick = [this] { TimerListMidiCorr_Timer(*this); };
}

void frmMIDIPlayer::ReadOffColors()
{
    state.RepeatOff = CommRep.color;
    state.PlayAllOff = CommPlayAll.color;
    state.SelOff = CommSel.color;
}

void frmMIDIPlayer::TakeFormWidth()
{
    const Size natural = PlayerSize(app.settings.PlayerPanelOpen);
    entry_.MinWidth = NearestIn<std::uint16_t>(natural.width + frame.width);
    entry_.MinHeight = NearestIn<std::uint16_t>(natural.height + frame.height);
    entry_.Width = entry_.MinWidth;
    place = Place{Left(), Top(), entry_.Width, std::max<int>(Height(), entry_.MinHeight)};
    LayOutPlayer(*this, {ScaleWidth(), ScaleHeight()});
}

bool frmMIDIPlayer::LoadWindow()
{
    static_cast<PlayerVariables &>(state) = PlayerVariables{};
    Settings &settings = app.settings;

    if (entry_.MinWidth == 0) {
        entry_.Top = 0;
        entry_.Left = 0;
    }
    place = Place{entry_.Left, entry_.Top, 0, entry_.MinWidth == 0 ? 0 : entry_.Height};
    Frame4.visible = settings.PlayerPanelOpen;
    TakeFormWidth();
    entry_.Height = NearestIn<std::uint16_t>(Height());
    entry_.State = StoredState::Normal;

    Tag = ToolTag(ViewKind::Player);
    CommNuovo.caption = app.messages.Text(TextId::New);
    CommCanc.caption = app.messages.Text(TextId::Delete);
    CommRim.caption = app.messages.Text(TextId::RemoveSelected);
    CommRimAll.caption = app.messages.Text(TextId::RemoveAll);
    CommAdd.caption = app.messages.Text(TextId::AddSelected);
    CommAddAll.caption = app.messages.Text(TextId::AddAll);
    NameControls(*this);
    if (settings.PlayerPanelOpen) {
        CommSel.color = kToggledColor;
    }
    ReadOffColors(); // behind the line above, on purpose: where the panel is open at the load, its button keeps its green for the run
    Label1.caption = "0:00";
    ResetPositionLine(*this);
    ResetMarkers(*this);

    MMControl1.DeviceType = "sequencer";
    MMControl1.Take();
    app.ports.ticks.Ticked = [this] { GoOn(*this); };
    FillFilePanel(*this);
    FillCompilations(*this);
    UpdateRemoveButtons(*this);
    if (settings.PlayerFile.empty()) {
        ResetPlayerCaption(*this);
        DisableMarks(*this);
    } else {
        ShowPlayerCaption(*this, settings.PlayerFile);
        TimerListMidiCorr.enabled = true;
    }
    UpdateTransportButtons(*this);
    return true;
}

void frmMIDIPlayer::UnloadWindow()
{
    StopTickTimer(*this);
    state.waiting.clear();
    app.ports.ticks.Ticked = nullptr;
    for (Timer *timer : {&Timer1, &TimerComandi, &TimerListMidiCorr}) {
        timer->enabled = false;
    }
    if (state.CompilationDirty) {
        (void)SaveCompilation(*this);
    }
    if (app.settings.PlayerFile.empty()) {
        app.settings.PlayerName = state.CompilationName;
    }
    MMControl1.LetGo();
    StorePlace(entry_, *this);
    entry_.State = StoredState::Closed;
}

// The width is that of the form; the lists take whatever height there is.
void frmMIDIPlayer::Resized()
{
    place = Place{Left(), Top(), entry_.MinWidth, std::max<int>(Height(), entry_.MinHeight)};
    StoreSize(entry_, *this);
    StoreState(entry_, *this);
    LayOutPlayer(*this, {ScaleWidth(), ScaleHeight()});
}

void mnuMidiPlayer_Click(PlayerState &player)
{
    ShowChild<frmMIDIPlayer>(player.window, player);
}

} // namespace velluto
