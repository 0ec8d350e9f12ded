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
    {"Vuoi davvero eliminare '%1'?", "Are you sure you want to delete '%1'?"},
    {"Indietro", "Back"},
    {"Annulla", "Cancel"},
    {"Passa alla vista a elenco", "Change to file list view mode"},
    {"Chiudi", "Close"},
    {"Computer", "Computer"},
    {"Impossibile eliminare la cartella.", "Could not delete directory."},
    {"Crea nuova cartella", "Create New Folder"},
    {"Crea una nuova cartella", "Create a New Folder"},
    {"&Taglia", "Cu&t"},
    {"Ultima modifica", "Date Modified"},
    {"Elimina", "Delete"},
    {"Vista dettagliata", "Detail View"},
    {"Cartella:", "Directory:"},
    {"Unità", "Drive"},
    {"File", "File"},
    {"&Nome file:", "File &name:"},
    {"Tipo di file:", "Files of type:"},
    {"Cartella", "Folder"},
    {"Avanti", "Forward"},
    {"Indietro", "Go back"},
    {"Avanti", "Go forward"},
    {"Vai alla cartella superiore", "Go to the parent directory"},
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
    {"OK", "OK"},
    {"Apri", "Open"},
    {"Cartella superiore", "Parent Directory"},
    {"Posizioni recenti", "Recent Places"},
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
