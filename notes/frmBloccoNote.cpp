#include "notes/frmBloccoNote.h"

#include "app/Catalogue.h"
#include "app/Characters.h"
#include "app/StoredPlace.h"
#include "files/ErrorTrap.h"
#include "notes/NotebookText.h"

#include <algorithm>
#include <string_view>

namespace velluto {

namespace {

constexpr Font kNotebookFont{"Courier New", 10, 400};

// Twips.
constexpr Size kNaturalSize{12000, 9000};
constexpr int kMargin = 60;
constexpr int kLineHeight = 300; // of the line below the text

// The words of the line below the text, "_" for what varies.
constexpr TwoTexts kRefused{"Il blocco note non può contenere il carattere «_»", "The notebook cannot hold the character \"_\""};
constexpr TwoTexts kFull{"Il blocco note è pieno: contiene 32000 caratteri", "The notebook is full: it holds 32000 characters"};
constexpr TwoTexts kTooLong{"Il testo è troppo lungo per essere modificato qui", "The text is too long to be edited here"};
constexpr TwoTexts kRest{"Il file è più lungo del blocco note: il resto non si vede e rimane com'è",
                         "The file is longer than the notebook: the rest is not shown and stays as it is"};
constexpr TwoTexts kUse{"_ caratteri su 32000", "_ of 32000 characters"};

std::string Filled(std::string text, std::string_view insert)
{
    return text.replace(text.find('_'), 1, insert);
}

} // namespace

frmBloccoNote::frmBloccoNote(NotesState &notes)
    : NotesWindow("frmBloccoNote", notes, PlacementEntry::Notebook, notes.app.frame.mnuBloccoNote)
{
    Text1.multiLine = true;
    Text1.takesTabs = true;
    Text1.font = kNotebookFont;
    Text1.Change = [this] { Text1_Change(); };
}

void frmBloccoNote::LayOut()
{
    const int width = std::max(ScaleWidth() - 2 * kMargin, 0);
    const int height = std::max(ScaleHeight() - kMargin - kLineHeight, 0);
    Text1.place = Place{kMargin, kMargin, width, height};
    lblStato.place = Place{kMargin, kMargin + height, width, kLineHeight};
}

bool frmBloccoNote::LoadWindow()
{
    PlaceFirst(entry_, kNaturalSize);
    place = PlaceOf(entry_);
    entry_.State = StoredState::Normal;
    Tag = ToolTag(ViewKind::Notebook);
    const std::string title = app.messages.Text(TextId::Notebook);
    caption = std::string(kProgramTitle) + " - " + title;
    Text1.accessibleName = title;
    LayOut();

    const ShownNotebook shown = ShowNotebook(notes_.NotebookText);
    if (shown.isWhole) {
        Text1.text = shown.text;
        if (notes_.NotebookHasRest) {
            lblStato.caption = app.messages.Text(kRest);
        } else {
            TellUse(CharactersOfText(shown.text).size());
        }
    } else {
        Text1.readOnly = true;
        Text1.Change = nullptr;
        Text1.text = shown.text;
        lblStato.caption = app.messages.Text(kTooLong);
    }
    return true;
}

// Written at every close, changed or not. Where that fails the text stays in its window, so that it can be saved in
// another way; closed once more without a change it is given up, since a program has to come to its end.
bool frmBloccoNote::Form_QueryUnload()
{
    app.CurrentOperation = app.messages.Text(TextId::Saving) + FileNameOf(app.paths.NotebookPath);
    const bool written =
        Trapped([this] { return WriteNotebook(app.ports.files, app.paths.NotebookPath, notes_.NotebookText); }, ClassifyingJudge{app});
    const bool givenUp = notWritten_;
    notWritten_ = !written;
    return written || givenUp;
}

void frmBloccoNote::UnloadWindow()
{
    NotesWindow::UnloadWindow();
    notes_.NotebookText.clear();
}

void frmBloccoNote::Resized()
{
    place = Place{Left(), Top(), std::max<int>(Width(), entry_.MinWidth), std::max<int>(Height(), entry_.MinHeight)};
    LayOut();
    StoreResized();
}

void frmBloccoNote::TellUse(std::size_t characters)
{
    lblStato.caption = Filled(app.messages.Text(kUse), std::to_string(characters));
}

void frmBloccoNote::Text1_Change()
{
    const TakenText taken = TakeText(CharactersOfText(Text1.text.Get()), Text1.caret);
    if (taken.IsWhole()) {
        notes_.NotebookText = NotebookRecord(taken.text);
        notWritten_ = false;
        TellUse(taken.text.size());
        return;
    }
    // The write of the text that is left comes back here.
    Text1.caret = taken.caret;
    Text1.text = Utf8Of(taken.text);
    lblStato.caption = taken.refused != 0 ? Filled(app.messages.Text(kRefused), Utf8Of({&taken.refused, 1})) : app.messages.Text(kFull);
}

void mnuBloccoNote_Click(NotesState &notes)
{
    Modulo1 &app = notes.app;
    if (notes.notebook == nullptr) {
        app.CurrentOperation = app.messages.Text(TextId::Opening) + FileNameOf(app.paths.NotebookPath);
        NotebookFile file;
        if (!Trapped([&] { return ReadNotebook(app.ports.files, app.paths.NotebookPath, file); }, ClassifyingJudge{app})) {
            return;
        }
        notes.NotebookText = std::move(file.record);
        notes.NotebookHasRest = file.hasRest;
    }
    ShowChild<frmBloccoNote>(notes.notebook, notes);
}

} // namespace velluto
