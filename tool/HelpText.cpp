// What --help prints.
#include "tool/Arguments.h"

namespace velluto::tool {

namespace {

constexpr TwoTexts kHelp{
    R"(Uso: velluto-tool COMANDO ...

  list FILE|CARTELLA...         che cosa c'è nei file, come nelle finestre
  find PAROLE CARTELLA...       in quale file e riga stanno tutte le parole
  check FILE|CARTELLA...        che cosa non va in un file, e dove
  tables import FILE.ins|FILE.csv
                                dà i nomi della lista ai suoni delle banche
  tables export [CARTELLA]      scrive le tabelle come testo: programs.txt,
                                styles.txt
  tables make [CARTELLA]        ne fa di nuovo le tabelle

I file sono quelli dello strumento: .pcg, .sty, .prf. Di una cartella si
leggono anche le cartelle che contiene.

  --csv, --json       la risposta come tabella
  --folder CARTELLA   tables: dove sono le tabelle, se non in quella del
                      programma
  --instrument NOME   tables import: quale strumento della lista
  --all               list: anche i posti vuoti
  --language it|en    la lingua; altrimenti quella del sistema
  --help, --version

Alla fine: 0 tutto bene; 1 check ha trovato qualcosa, find nulla, list un
file non dello strumento; 2 comando sbagliato; 3 un file non si può leggere.
)",
    R"(Usage: velluto-tool COMMAND ...

  list FILE|FOLDER...           what is in the files, as the windows show it
  find WORDS FOLDER...          which file and row has all the words
  check FILE|FOLDER...          what is wrong in a file, and where
  tables import FILE.ins|FILE.csv
                                gives the list's names to the sounds of the
                                banks
  tables export [FOLDER]        writes the tables as text: programs.txt,
                                styles.txt
  tables make [FOLDER]          makes the tables of it again

Files are the instrument's: .pcg, .sty, .prf. Of a folder, the folders in it
are read too.

  --csv, --json       the answer as a table
  --folder FOLDER     tables: where the tables are, if not in the program's
  --instrument NAME   tables import: which instrument of the list
  --all               list: places without an item too
  --language it|en    the language; without it, the system's
  --help, --version

At the end: 0 all is well; 1 check has found something, find nothing, list a
file that is not the instrument's; 2 no such command; 3 a file could not be
read.
)"};

} // namespace

std::string_view HelpText(int linguaBase)
{
    return kHelp.In(linguaBase);
}

} // namespace velluto::tool
