#include "player/frmMIDIPlayer.h"

#include <array>

namespace velluto {

namespace {

constexpr int kTimePoints = 22;            // the elapsed time is read from afar
constexpr int kCompilationNameBytes = 249; // a file's name has 255, "c-" and ".cmp" among them

} // namespace

// What the form looks like before any handler has run.
frmMIDIPlayer::frmMIDIPlayer(Modulo1 &core, PlayerVariables &variables)
    : ChildForm("frmMIDIPlayer", kNoNumber, core, &core.frame.mnuMidiPlayer), state(variables),
      entry(core.settings.PlacementTable.at(PlacementEntry::Player)), MMControl1(*this, "MMControl1", core.ports.sequencer)
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
    Text2.bytesInFileName = kCompilationNameBytes;
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

} // namespace velluto
