#include "desktop/ItalianTexts.h"

#include "app/Language.h"
#include "desktop/QtText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

// Sorted by the English text.
constexpr std::array kTexts = std::to_array<TwoTexts>({
    {"%1\nCartella non trovata.\nVerifica che il nome sia corretto.",
     "%1\nDirectory not found.\nPlease verify the correct directory name was given."},
    {"%1\nFile non trovato.\nVerifica che il nome sia corretto.", "%1\nFile not found.\nPlease verify the correct file name was given."},
    {"%1 - [%2]", "%1 - [%2]"},
    {"%1 esiste già.\nVuoi sostituirlo?", "%1 already exists.\nDo you want to replace it?"},
    {"%1 minuti", "%1 minutes"},
    {"&Scegli", "&Choose"},
    {"&Chiudi", "&Close"},
    {"&Copia", "&Copy"},
    {"&Elimina", "&Delete"},
    {"&Sposta", "&Move"},
    {"&Nuova cartella", "&New Folder"},
    {"&No", "&No"},
    {"&Apri", "&Open"},
    {"&Incolla", "&Paste"},
    {"&Ripeti", "&Redo"},
    {"&Rinomina", "&Rename"},
    {"&Ripristina", "&Restore"},
    {"&Salva", "&Save"},
    {"&Ridimensiona", "&Size"},
    {"&Annulla", "&Undo"},
    {"&Sì", "&Yes"},
    {"'%1' è protetto da scrittura.\nVuoi eliminarlo comunque?", "'%1' is write protected.\nDo you want to delete it anyway?"},
    {"Un clic tiene la nota, un secondo la fa finire", "A press latches a note, a second one ends it"},
    {"Vuoi davvero eliminare '%1'?", "Are you sure you want to delete '%1'?"},
    {"Tempo di attacco (controller 73)", "Attack time (controller 73)"},
    {"Indietro", "Back"},
    {"Annulla", "Cancel"},
    {"Passa alla vista a elenco", "Change to file list view mode"},
    {"Chiudi", "Close"},
    {"Computer", "Computer"},
    {"Impossibile eliminare la cartella.", "Could not delete directory."},
    {"Crea nuova cartella", "Create New Folder"},
    {"Crea una nuova cartella", "Create a New Folder"},
    {"&Taglia", "Cu&t"},
    {"Modulazione del cut-off (controller 2)", "Cut-off modulation (controller 2)"},
    {"Ultima modifica", "Date Modified"},
    {"Elimina", "Delete"},
    {"Profondità del chorus (controller 93)", "Depth of the chorus (controller 93)"},
    {"Profondità del riverbero (controller 91)", "Depth of the reverb (controller 91)"},
    {"Vista dettagliata", "Detail View"},
    {"Cartella:", "Directory:"},
    {"Unità", "Drive"},
    {"File", "File"},
    {"&Nome file:", "File &name:"},
    {"Tipo di file:", "Files of type:"},
    {"Trova", "Find"},
    {"Cartella", "Folder"},
    {"Avanti", "Forward"},
    {"Indietro", "Go back"},
    {"Avanti", "Go forward"},
    {"Vai alla cartella superiore", "Go to the parent directory"},
    {"In quarti di tempo, e in centesimi del brano", "In quarters of a beat, and in hundredths of the song"},
    {"Blocca le note tenute come accordo, che ogni tasto poi sposta", "Keeps the latched notes as a chord, which each key then moves"},
    {"Tastiera", "Keyboard"},
    {"Vista a elenco", "List View"},
    {"Cerca in:", "Look in:"},
    {"In&grandisci", "Ma&ximize"},
    {"Ingrandisci", "Maximize"},
    {"Menu", "Menu"},
    {"Riduci a &icona", "Mi&nimize"},
    {"Riduci a icona", "Minimize"},
    {"Computer", "My Computer"},
    {"Nome", "Name"},
    {"Nuova cartella", "New Folder"},
    {"Le note che suonano restano sul vecchio canale: premi All Notes Off prima di cambiarlo",
     "Notes that sound go on on the old channel: press All Notes Off before you change it"},
    {"OK", "OK"},
    {"Attiva: si suona premendo. Spenta: il puntatore suona i tasti su cui passa",
     "On: a press plays. Off: the pointer plays what it passes over"},
    {"Apri", "Open"},
    {"Apri un file: Ctrl+A, o trascinalo qui   ·   Suoni: Visualizza   ·   Guida: F1",
     "Open a file: Ctrl+A, or drop it here   ·   Sounds: View   ·   Guide: F1"},
    {"Cartella superiore", "Parent Directory"},
    {"Pitch bend", "Pitch bend"},
    {"Modulazione dell'intonazione (controller 1)", "Pitch modulation (controller 1)"},
    {"Posto fra sinistra e destra (controller 10)", "Place between left and right (controller 10)"},
    {"Suona tutti i file della lista, uno dopo l'altro", "Plays all files of the list, one after the other"},
    {"Ripete la parte fra i due indicatori", "Plays the part between the two pointers again and again"},
    {"Posizioni recenti", "Recent Places"},
    {"Tempo di rilascio (controller 72)", "Release time (controller 72)"},
    {"Rimuovi", "Remove"},
    {"Ripristina", "Restore"},
    {"Ripristina", "Restore Down"},
    {"Salva", "Save"},
    {"Salva come", "Save As"},
    {"Seleziona tutto", "Select All"},
    {"Mostra", "Show"},
    {"Mostra ", "Show "},
    {"Mostra i file n&ascosti", "Show &hidden files"},
    {"Barra laterale", "Sidebar"},
    {"Dimensione", "Size"},
    {"Barra di stato", "Status bar"},
    {"Tipo", "Type"},
    {"Velocity delle note che cominciano", "Velocity of the notes that begin"},
    {"Velocity delle note che finiscono", "Velocity of the notes that end"},
    {"Volume (controller 7)", "Volume (controller 7)"},
    {"Da dove si suona: trascinalo, o il cursore Start", "Where a play begins: drag it, or the Start slider"},
    {"Fin dove si suona: trascinalo, o il cursore Stop", "Where a play ends: drag it, or the Stop slider"},
    {"Dove si trova il brano. Indietro e avanti lo spostano del 5%; trascina i due indicatori per suonarne una parte",
     "Where the song is. Back and Forward move it by 5%; drag the two pointers to play a part"},
    {"accompagnamento 1", "accompaniment 1"},
    {"accompagnamento 2", "accompaniment 2"},
    {"accompagnamento 3", "accompaniment 3"},
    {"accompagnamento 4", "accompaniment 4"},
    {"accompagnamento 5", "accompaniment 5"},
    {"basso", "bass"},
    {"canale di controllo: seleziona Style e Performance", "control channel: it selects Styles and Performances"},
    {"batteria", "drums"},
    {"canale globale", "global channel"},
    {"parte inferiore", "lower part"},
    {"nessuna parte", "no part"},
    {"aperta: vedi Finestra", "open: see Window"},
    {"percussioni", "percussion"},
    {"ruolo: %1", "role: %1"},
    {"parte superiore 1", "upper part 1"},
    {"parte superiore 2", "upper part 2"},
    {"parte superiore 3", "upper part 3"},
});

static_assert(std::ranges::is_sorted(kTexts, {}, &TwoTexts::english), "the texts are looked up by halving");

} // namespace

QString ItalianTexts::translate(const char * /*context*/, const char *source, const char * /*disambiguation*/, int /*n*/) const
{
    const std::string_view wanted(source);
    const auto *const found = std::ranges::lower_bound(kTexts, wanted, {}, &TwoTexts::english);
    return found != kTexts.end() && found->english == wanted ? FromUtf8(found->italian) : QString();
}

} // namespace velluto
