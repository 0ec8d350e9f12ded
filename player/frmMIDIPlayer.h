// The player's window as a record: transport, compilations, and a file panel that may be closed. The routines of the room act on
// it; PlayerWindow makes it, attaches them and answers its events.
#pragma once

#include "app/ChildForm.h"
#include "player/MCIModulo.h"
#include "player/MMControl.h"
#include "view/ControlArray.h"
#include "view/FolderControls.h"
#include "view/ScaleControls.h"

namespace velluto {

inline constexpr int kTransportButtons = 7;

class frmMIDIPlayer : public ChildForm {
public:
    frmMIDIPlayer(Modulo1 &core, PlayerVariables &variables);

    PlayerVariables &state;
    WindowPlacement &entry; // its place and size in the settings

    Frame Frame1{*this, "Frame1"}; // "Player"
    ControlArray<Button, 0, kTransportButtons> MCIPuls{*this, "MCIPuls"};
    Button CommRep{*this, "CommRep"};
    Button CommPlayAll{*this, "CommPlayAll"};
    Button CommSel{*this, "CommSel"};
    ControlArray<Label, 0, 2> Label2{*this, "Label2"};
    Label LabTrackLenght{*this, "LabTrackLenght"};
    Label LabTrackPosition{*this, "LabTrackPosition"};
    Label Label1{*this, "Label1"}; // the elapsed time
    Picture Picture1{*this, "Picture1"};
    Line Line1{*this, "Line1"};
    Marker Picture2{*this, "Picture2"}; // start
    Marker Picture3{*this, "Picture3"}; // stop
    Label LabStart{*this, "LabStart"};
    ScrollBar HScrollStart{*this, "HScrollStart"};
    Label LabStop{*this, "LabStop"};
    ScrollBar HScrollStop{*this, "HScrollStop"};

    Frame Frame2{*this, "Frame2"}; // "Compilations"
    ListBox ListComp{*this, "ListComp"};
    TextBox Text2{*this, "Text2"};
    Button CommNuovo{*this, "CommNuovo"};
    Button CommCanc{*this, "CommCanc"};
    FolderList Dir1{*this, "Dir1"}; // hidden: the program's folder
    ListBox File1{*this, "File1"};  // hidden: the files behind the rows of ListComp

    Frame Frame3{*this, "Frame3"}; // "Compilations - files MIDI"
    ListBox ListMidiCorr{*this, "ListMidiCorr"};
    Button CommAdd{*this, "CommAdd"};
    Button CommAddAll{*this, "CommAddAll"};
    Button CommRim{*this, "CommRim"};
    Button CommRimAll{*this, "CommRimAll"};

    Frame Frame4{*this, "Frame4"}; // "Files MIDI"
    DriveList DriveMidiSel{*this, "DriveMidiSel"};
    FolderList DirMidiSel{*this, "DirMidiSel"};
    ListBox ListMidiSel{*this, "ListMidiSel"};
    ListBox FileMidiSel{*this, "FileMidiSel"}; // hidden: the names behind the rows of ListMidiSel

    MMControl MMControl1;
    Timer Timer1{*this, "Timer1", 250};
    Timer TimerComandi{*this, "TimerComandi", 10};
    Timer TimerListMidiCorr{*this, "TimerListMidiCorr", 10};
};

} // namespace velluto
