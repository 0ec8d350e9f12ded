#include "player/PlayerWindow.h"

#include "app/Catalogue.h"
#include "app/StoredPlace.h"
#include "player/Compilations.h"
#include "player/EndOfFile.h"
#include "player/FilePanel.h"
#include "player/FileSelection.h"
#include "player/Marks.h"
#include "player/PlayerClock.h"
#include "player/PlayerDisplay.h"
#include "player/PlayerLayout.h"
#include "player/PlayerWords.h"
#include "player/Transport.h"

#include <algorithm>

namespace velluto {

namespace {

class PlayerWindow final : public frmMIDIPlayer {
public:
    explicit PlayerWindow(PlayerState &player) : frmMIDIPlayer(player.app, player)
    {
        AttachHandlers();
        AttachTransport();
    }

private:
    bool LoadWindow() override;
    void UnloadWindow() override;
    void Resized() override;
    void AttachHandlers();
    void AttachTransport();
};

void PlayerWindow::AttachHandlers()
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

void PlayerWindow::AttachTransport()
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

bool PlayerWindow::LoadWindow()
{
    state = PlayerVariables{};
    Settings &settings = app.settings;

    if (entry.MinWidth == 0) {
        entry.Top = 0;
        entry.Left = 0;
    }
    place = Place{entry.Left, entry.Top, 0, entry.MinWidth == 0 ? 0 : entry.Height};
    Frame4.visible = settings.PlayerPanelOpen;
    TakeFormWidth(*this);
    entry.Height = NearestIn<std::uint16_t>(Height());
    entry.State = StoredState::Normal;

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
    // Read behind the line above, on purpose: where the panel is open at the load, its button keeps its green for the run.
    state.RepeatOff = CommRep.color;
    state.PlayAllOff = CommPlayAll.color;
    state.SelOff = CommSel.color;
    Label1.caption = "0:00";
    ResetPositionLine(*this);
    ResetMarkers(*this);

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

void PlayerWindow::UnloadWindow()
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
    StorePlace(entry, *this);
    entry.State = StoredState::Closed;
}

// The width is that of the form; the lists take whatever height there is.
void PlayerWindow::Resized()
{
    place = Place{Left(), Top(), entry.MinWidth, std::max<int>(Height(), entry.MinHeight)};
    StoreSize(entry, *this);
    StoreState(entry, *this);
    LayOutPlayer(*this, {ScaleWidth(), ScaleHeight()});
}

} // namespace

void mnuMidiPlayer_Click(PlayerState &player)
{
    ShowChild<PlayerWindow>(player.window, player);
}

void OpenMidiFile(PlayerState &player, const std::string &path)
{
    mnuMidiPlayer_Click(player);
    ShowMidiFile(*player.window, path);
}

} // namespace velluto
