#include "player/PlayerWords.h"

#include <array>

namespace velluto {

namespace {

constexpr std::array<TwoTexts, kTransportButtons> kButtons{{
    {"File precedente", "Previous file"},
    {"File successivo", "Next file"},
    {"Riproduci", "Play"},
    {"Pausa", "Pause"},
    {"Indietro del 5%", "Back 5%"},
    {"Avanti del 5%", "Forward 5%"},
    {"Ferma", "Stop"},
}};
constexpr TwoTexts kElapsed{"Tempo trascorso", "Elapsed time"};
constexpr TwoTexts kPosition{"Posizione nel file", "Position in the file"};
constexpr TwoTexts kStartMark{"Segno di inizio", "Start mark"};
constexpr TwoTexts kStopMark{"Segno di fine", "Stop mark"};
constexpr TwoTexts kCompilations{"Compilation", "Compilations"};
constexpr TwoTexts kCompilationName{"Nome della compilation", "Name of the compilation"};
constexpr TwoTexts kCompilationFiles{"File della compilation", "Files of the compilation"};
constexpr TwoTexts kDrive{"Unità", "Drive"};
constexpr TwoTexts kFolder{"Cartella", "Folder"};
constexpr TwoTexts kFolderFiles{"File MIDI della cartella", "MIDI files of the folder"};

} // namespace

void NameControls(frmMIDIPlayer &form)
{
    const auto word = [&form](const TwoTexts &texts) { return form.app.messages.Text(texts); };
    for (int i = 0; i < kTransportButtons; ++i) {
        form.MCIPuls[i].accessibleName = word(kButtons.at(static_cast<std::size_t>(i)));
        form.MCIPuls[i].toolTip = form.MCIPuls[i].accessibleName;
    }
    form.Picture1.accessibleName = word(kPosition);
    form.Line1.accessibleName = word(kPosition);
    form.HScrollStart.accessibleName = word(kStartMark);
    form.HScrollStop.accessibleName = word(kStopMark);
    form.HScrollStart.toolTip = word(kStartMark);
    form.HScrollStop.toolTip = word(kStopMark);
    form.Picture2.accessibleName = word(kStartMark);
    form.Picture3.accessibleName = word(kStopMark);
    form.Picture2.toolTip = word(kStartMark);
    form.Picture3.toolTip = word(kStopMark);
    form.Label1.toolTip = word(kElapsed);
    form.ListComp.accessibleName = word(kCompilations);
    form.Text2.accessibleName = word(kCompilationName);
    form.Text2.toolTip = word(kCompilationName);
    form.Dir1.accessibleName = word(kFolder);
    form.File1.accessibleName = word(kCompilations);
    form.ListMidiCorr.accessibleName = word(kCompilationFiles);
    form.DriveMidiSel.accessibleName = word(kDrive);
    form.DirMidiSel.accessibleName = word(kFolder);
    form.ListMidiSel.accessibleName = word(kFolderFiles);
    form.FileMidiSel.accessibleName = word(kFolderFiles);
}

} // namespace velluto
