#include "desktop/ItalianTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace velluto {

namespace {

using Pair = std::pair<std::string_view, const char *>;

// Sorted by the English text.
constexpr std::array kTexts = std::to_array<Pair>({
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nCartella non trovata.\nVerifica che il nome sia corretto."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.", "%1\nFile non trovato.\nVerifica che il nome sia corretto."},
    {"%1 - [%2]", "%1 - [%2]"},
    {"%1 already exists.\nDo you want to replace it?", "%1 esiste già.\nVuoi sostituirlo?"},
    {"&Choose", "&Scegli"},
    {"&Close", "&Chiudi"},
    {"&Copy", "&Copia"},
    {"&Delete", "&Elimina"},
    {"&Move", "&Sposta"},
    {"&New Folder", "&Nuova cartella"},
    {"&No", "&No"},
    {"&Open", "&Apri"},
    {"&Paste", "&Incolla"},
    {"&Redo", "&Ripeti"},
    {"&Rename", "&Rinomina"},
    {"&Restore", "&Ripristina"},
    {"&Save", "&Salva"},
    {"&Size", "&Ridimensiona"},
    {"&Undo", "&Annulla"},
    {"&Yes", "&Sì"},
    {"'%1' is write protected.\nDo you want to delete it anyway?", "'%1' è protetto da scrittura.\nVuoi eliminarlo comunque?"},
    {"Are you sure you want to delete '%1'?", "Vuoi davvero eliminare '%1'?"},
    {"Back", "Indietro"},
    {"Cancel", "Annulla"},
    {"Change to file list view mode", "Passa alla vista a elenco"},
    {"Close", "Chiudi"},
    {"Computer", "Computer"},
    {"Could not delete directory.", "Impossibile eliminare la cartella."},
    {"Create New Folder", "Crea nuova cartella"},
    {"Create a New Folder", "Crea una nuova cartella"},
    {"Cu&t", "&Taglia"},
    {"Date Modified", "Ultima modifica"},
    {"Delete", "Elimina"},
    {"Detail View", "Vista dettagliata"},
    {"Directory:", "Cartella:"},
    {"Drive", "Unità"},
    {"File", "File"},
    {"File &name:", "&Nome file:"},
    {"Files of type:", "Tipo di file:"},
    {"Folder", "Cartella"},
    {"Forward", "Avanti"},
    {"Go back", "Indietro"},
    {"Go forward", "Avanti"},
    {"Go to the parent directory", "Vai alla cartella superiore"},
    {"Keyboard", "Tastiera"},
    {"List View", "Vista a elenco"},
    {"Look in:", "Cerca in:"},
    {"Ma&ximize", "In&grandisci"},
    {"Maximize", "Ingrandisci"},
    {"Menu", "Menu"},
    {"Mi&nimize", "Riduci a &icona"},
    {"Minimize", "Riduci a icona"},
    {"My Computer", "Computer"},
    {"Name", "Nome"},
    {"New Folder", "Nuova cartella"},
    {"OK", "OK"},
    {"Open", "Apri"},
    {"Parent Directory", "Cartella superiore"},
    {"Recent Places", "Posizioni recenti"},
    {"Remove", "Rimuovi"},
    {"Restore", "Ripristina"},
    {"Restore Down", "Ripristina"},
    {"Save", "Salva"},
    {"Save As", "Salva come"},
    {"Select All", "Seleziona tutto"},
    {"Show", "Mostra"},
    {"Show ", "Mostra "},
    {"Show &hidden files", "Mostra i file n&ascosti"},
    {"Sidebar", "Barra laterale"},
    {"Size", "Dimensione"},
    {"Status bar", "Barra di stato"},
    {"Type", "Tipo"},
});

static_assert(std::ranges::is_sorted(kTexts, {}, &Pair::first), "the texts are looked up by halving");

} // namespace

QString ItalianTexts::translate(const char * /*context*/, const char *source, const char * /*disambiguation*/, int /*n*/) const
{
    const std::string_view wanted(source);
    const auto *const found = std::ranges::lower_bound(kTexts, wanted, {}, &Pair::first);
    return found != kTexts.end() && found->first == wanted ? QString::fromUtf8(found->second) : QString();
}

} // namespace velluto
