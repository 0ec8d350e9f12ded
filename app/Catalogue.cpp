#include "app/Catalogue.h"

#include "app/Language.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace velluto {

namespace {

struct CatalogueText {
    int id = 0;
    TwoTexts text;
};

// Sorted by id. The gaps are ids without a text.
// clang-format off
constexpr std::array<CatalogueText, 117> kTexts{{
    {1, {"_", "_"}},
    {2, {"&File", "&File"}},
    {3, {"&Visualizza", "&View"}},
    {4, {"Fi&nestra", "&Window"}},
    {5, {"Informazioni", "&About"}},
    {7, {"&Esci", "E&xit"}},
    {8, {"&Chiudi", "&Close"}},
    {9, {"&Sovrapponi", "&Cascade"}},
    {11, {"Banchi", "Banks"}},
    {12, {"BANCHI STYLE", "BANKS STYLE"}},
    {13, {"BANCHI PROGRAM", "BANKS PROGRAM"}},
    {14, {"Formato dati _ errato", "Error reading _"}},
    {15, {"File assente", "File not found"}},
    {16, {"Dispositivo MIDI di ingresso assente", "MIDI input device not found"}},
    {17, {"Apertura di", "Opening "}},
    {18, {"Dispositivo MIDI di Uscita già in uso", "Output MIDI Device already in use"}},
    {19, {"Errore apertura dispositivo MIDI di ingresso", "Error opening MIDI input device"}},
    {20, {"Dispositivo MIDI di Uscita assente", "Output MIDI Device not found"}},
    {21, {"Errore chiusura Dispositivo MIDI di Uscita", "Error closing Output MIDI Device"}},
    {22, {"Canale MIDI", "MIDI Channel"}},
    {23, {"Elimina", "Delete"}},
    {24, {"Riprova", "Retry"}},
    {25, {"Unità non disponibile", "Device unavailable"}},
    {26, {"Disco non pronto o non formattato", "Disk not ready or not formatted"}},
    {27, {"Errore di lettura da disco", "Disk reading error"}},
    {28, {"Disco pieno", "Disk full"}},
    {29, {"ATTENZIONE", "WARNING"}},
    {30, {"Informazioni su ", "About "}},
    {37, {"Salva come .txt", "Save as .txt"}},
    {44, {"&Cancella", "&Delete"}},
    {45, {"ATTENDERE", "WAIT"}},
    {46, {"Nome File", "File Name"}},
    {47, {"Guida Utente", "User's Guide"}},
    {48, {"Nome file non valido", "File name not valid"}},
    {49, {"Chiudere prima tutte le altre applicazioni", "Close before all other applications"}},
    {50, {"Banco", "Bank"}},
    {51, {"&Apri", "&Open"}},
    {52, {"Il file è stato modificato", "The file has changed"}},
    {53, {"Salvare le modifiche ?", "Save changes ?"}},
    {54, {"&Salva", "&Save"}},
    {62, {"&Preferenze", "&Preferences"}},
    {63, {"&Lingua", "&Language"}},
    {64, {"Italiano", "Italian"}},
    {65, {"Inglese", "English"}},
    {66, {"Il cambio avrà effetto alla prossima esecuzione del programma", "The change will take place next time you will run the programme"}},
    {67, {"Apri File", "Open File"}},
    {68, {"BANCHI PERFORMANCE", "BANKS PERFORMANCE"}},
    {69, {"SenzaNome", "Untitled"}},
    {70, {"Cancellazione di", "Deleting"}},
    {71, {"&Modifica", "&Edit"}},
    {72, {"Copia", "Copy"}},
    {73, {"Taglia", "Cut"}},
    {74, {"Incolla", "Paste"}},
    {75, {"Salva file come", "Save file as"}},
    {76, {"errore generico", "generic error"}},
    {77, {"Nuova", "New"}},
    {78, {"Rimuovi sel.", "Remove sel."}},
    {79, {"File _ assente", "File _ not found"}},
    {81, {"SenzaNome", "Untitled"}},
    {82, {"Rimuovi tutto", "Remove all"}},
    {83, {"Aggiungi sel.", "Add sel."}},
    {84, {"Cambio lingua", "Change language"}},
    {85, {"Apri &pcg", "Open &pcg"}},
    {86, {"Apri &sty", "Open &sty"}},
    {87, {"Apri p&rf", "Open p&rf"}},
    {88, {"Nuovo File", "New File"}},
    {90, {"File di sola lettura", "Read only file"}},
    {91, {"Messaggi MIDI", "MIDI messages"}},
    {92, {"Aggiungi tutto", "Add all"}},
    {93, {"File già aperto", "File already open"}},
    {94, {"Affianca Orizzontalmente", "Tile Horizontal"}},
    {95, {"Affianca Verticalmente", "Tile Vertical"}},
    {96, {"Apertura di _", "Opening _"}},
    {98, {"Interno", "Internal"}},
    {99, {"Elaborazione di _", "Processing _"}},
    {100, {"_ errato", "_ error"}},
    {101, {"Aggiornamento di _", "Update _"}},
    {103, {"Visualizza Barra di Stato", "Show Status Bar"}},
    {104, {"Errore di lettura", "Reading Error"}},
    {105, {"Lettura di ", "Reading "}},
    {106, {"&Tastiera", "&Keyboard"}},
    {108, {"&Messaggi MIDI", "&MIDI Messages"}},
    {109, {"Errore di scrittura su disco", "Disk writing error"}},
    {110, {"Impossibile trovare il percorso", "Path not found"}},
    {111, {"Apertura di ", "Opening "}},
    {112, {"Errore I/O periferica", "Error I/O device"}},
    {113, {"Apertura dispositivo MIDI", "Opening MIDI out device"}},
    {114, {"Chiusura dispositivo MIDI di uscita", "Closing MIDI out device"}},
    {115, {"Salva ", "Saving "}},
    {116, {"Formato dati errato", "Data format error"}},
    {117, {"Errore Apertura Dispositivo MIDI di Ingresso", "Error Opening the MIDI Input Device"}},
    {118, {"Il Dispositivo MIDI non sarà utilizzato", "The MIDI Device will not be used"}},
    {119, {" ", " "}},
    {122, {"Sola Lettura", "Read Only"}},
    {123, {"Ingrandisci", "Maximize"}},
    {125, {"Importa", "Import"}},
    {126, {"Il Program è stato modificato.", "The Program has changed."}},
    {127, {"Mantenere le modifiche ?", "Keep changes ?"}},
    {128, {"Blocco Note", "Notebook"}},
    {129, {"Velluto v 1.1 - KORG PA80 real time control/file manager", "Velluto v 1.1 - KORG PA80 real time control/file manager"}},
    {130, {"Errore accesso dispositivo MIDI di uscita", "Error accessing MIDI output device"}},
    {131, {"versione 1.1, maggio 2005", "version 1.1, May 2005"}},
    {138, {"Canali MIDI", "MIDI channels"}},
    {141, {"Selezione Automatica Program", "Auto Program Selection"}},
    {143, {"Nuovo pcg", "New pcg"}},
    {144, {"Nuovo sty", "New sty"}},
    {145, {"Nuovo prf", "New prf"}},
    {146, {"Importazione di ", "Importing "}},
    {147, {"Stampa", "Print"}},
    {148, {"Lista", "List"}},
    {149, {"Tabella", "Table"}},
    {150, {"Selezione Automatica Program", "Auto Program Selection"}},
    {151, {"Dispositivo MIDI di uscita", "MIDI out device"}},
    {152, {"Dispositivo MIDI di ingresso", "MIDI in device"}},
    {153, {"(vuoto)", "(empty)"}},
    {154, {"Dispositivo MIDI di ingresso già in uso", "Input MIDI Device already in use"}},
    {155, {"Dispositivo MCI non pronto", "MCI device not ready"}},
}};
// clang-format on

static_assert(std::ranges::is_sorted(kTexts, {}, &CatalogueText::id));

} // namespace

std::string_view LoadResString(int id)
{
    const int base = id > kEnglishBase ? kEnglishBase : kItalianBase;
    const auto *const found = std::ranges::lower_bound(kTexts, id - base, {}, &CatalogueText::id);
    if (found == kTexts.end() || found->id != id - base) {
        throw std::out_of_range("no text for id " + std::to_string(id));
    }
    return found->text.In(base);
}

} // namespace velluto
