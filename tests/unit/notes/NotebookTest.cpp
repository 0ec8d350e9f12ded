// The notebook: its window, its file, and what happens where the file cannot be had.
#include "unit/notes/NotesProgram.h"

namespace velluto::test {
namespace {

class NotebookTest : public NotesTest {
protected:
    void SetUp() override { StartIn(TestProgram::English); }
    frmBloccoNote &Open()
    {
        EXPECT_TRUE(run.Choose(menu.mnuBloccoNote));
        return *notes.notebook;
    }
    // As a hand does that has typed up to the caret.
    static void Type(frmBloccoNote &form, const std::string &text, int caret)
    {
        form.Text1.caret = caret;
        form.Text1.text = text;
    }
    void FailNext(FileFault::Operation operation, int number, int times = 1)
    {
        run.files.faults.push_back({operation, run.At(kNotebook), number, times});
    }
    [[nodiscard]] static std::string Record(const std::string &text) { return text + std::string(32000 - text.size(), ' '); }
};

TEST_F(NotebookTest, TheFirstOpeningMakesTheFileAndShowsAnEmptyText)
{
    const frmBloccoNote &form = Open();
    EXPECT_EQ(form.Text1.text.Get(), "");
    EXPECT_EQ(File(kNotebook), "");
    EXPECT_EQ(notes.NotebookText, std::string(32000, ' '));
    EXPECT_EQ(run.program.app.CurrentOperation, "Opening Velluto-Notebook.txt");
}

TEST_F(NotebookTest, EmptyItsFileHolds32000BlanksAndShowsAsEmptyAgain)
{
    run.Close(Open());
    EXPECT_EQ(File(kNotebook), std::string(32000, ' '));
    EXPECT_EQ(Open().Text1.text.Get(), "");
}

TEST_F(NotebookTest, WhatIsTypedIsInTheVariableAtOnceAndInTheFileAtTheClose)
{
    frmBloccoNote &form = Open();
    Type(form, "Piano on UP.1\r\nperché", 21);
    EXPECT_EQ(notes.NotebookText, Record("Piano on UP.1\r\nperch\xE9"));
    EXPECT_EQ(form.lblStato.caption.Get(), "21 of 32000 characters");
    EXPECT_EQ(File(kNotebook), "");
    run.Close(form);
    EXPECT_EQ(File(kNotebook), Record("Piano on UP.1\r\nperch\xE9"));
    EXPECT_EQ(notes.NotebookText, "");
    const frmBloccoNote &again = Open();
    EXPECT_EQ(again.Text1.text.Get(), "Piano on UP.1\r\nperché");
    EXPECT_EQ(again.lblStato.caption.Get(), "21 of 32000 characters");
}

TEST_F(NotebookTest, ATextOf32000CharactersIsStoredWholeAndStopsFurtherTyping)
{
    frmBloccoNote &form = Open();
    const std::string full = std::string(31999, 'a') + "z";
    Type(form, full, 32000);
    EXPECT_EQ(form.Text1.text.Get(), full);
    EXPECT_EQ(form.lblStato.caption.Get(), "32000 of 32000 characters");
    Type(form, full + "!", 32001);
    EXPECT_EQ(form.Text1.text.Get(), full);
    EXPECT_EQ(form.Text1.caret, 32000);
    EXPECT_EQ(form.lblStato.caption.Get(), "The notebook is full: it holds 32000 characters");
    run.Close(form);
    EXPECT_EQ(File(kNotebook), full);
    EXPECT_EQ(Open().Text1.text.Get(), full);
}

TEST_F(NotebookTest, ACharacterThatTheFileCannotHoldIsKeptOutAndNamed)
{
    frmBloccoNote &form = Open();
    Type(form, "volume ≤ 5", 8);
    EXPECT_EQ(form.Text1.text.Get(), "volume  5");
    EXPECT_EQ(form.Text1.caret, 7);
    EXPECT_EQ(notes.NotebookText, Record("volume  5"));
    EXPECT_EQ(form.lblStato.caption.Get(), "The notebook cannot hold the character \"≤\"");
    Type(form, "volume < 5", 8);
    EXPECT_EQ(form.lblStato.caption.Get(), "10 of 32000 characters");
}

TEST_F(NotebookTest, IsWrittenAtEveryCloseChangedOrNot)
{
    Open();
    PutFile(kNotebook, "written by somebody else in the meantime");
    run.Close(*notes.notebook);
    EXPECT_EQ(File(kNotebook), std::string(32000, ' '));
}

TEST_F(NotebookTest, OpenAtTheExitItIsSavedWithoutAQuestionAndItsStateStays1)
{
    Type(Open(), "kept", 4);
    EXPECT_TRUE(run.Exit());
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(File(kNotebook), Record("kept"));
    EXPECT_EQ(Entry(11).State, 1);
}

TEST_F(NotebookTest, KeepsTheChildContract)
{
    const frmBloccoNote &form = Open();
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - Notebook");
    EXPECT_EQ(form.Tag.prefix, std::string(1, '\x0C') + std::string(19, '\0'));
    EXPECT_FALSE(menu.mnuBloccoNote.enabled);
    EXPECT_EQ(children.ChildCount, 1);
    EXPECT_FALSE(children.RestoringLayout);
    EXPECT_STREQ(form.Text1.font.name, "Courier New");
    EXPECT_EQ(form.Text1.accessibleName, "Notebook");
    EXPECT_TRUE(form.Text1.takesTabs);
}

TEST_F(NotebookTest, TheFirstOpeningHasItsNaturalSizeAtTheTopLeft)
{
    EXPECT_EQ(Open().place.Get(), (Place{0, 0, 12000, 9000}));
    EXPECT_EQ(Entry(11).Width, 12000);
    EXPECT_EQ(Entry(11).MinWidth, 12000);
    EXPECT_EQ(Entry(11).Height, 9000);
    EXPECT_EQ(Entry(11).MinHeight, 9000);
    EXPECT_EQ(Entry(11).State, 1);
}

TEST_F(NotebookTest, ALaterOpeningTakesItsStoredPlace)
{
    frmBloccoNote &form = Open();
    children.Resize(form, 12300, 9600);
    children.Move(form, 150, -225);
    run.Close(form);
    EXPECT_EQ(Entry(11).State, 0);
    EXPECT_EQ(Entry(11).Top, -225);
    EXPECT_TRUE(menu.mnuBloccoNote.enabled);
    EXPECT_EQ(children.ChildCount, 0);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_EQ(Open().place.Get(), (Place{150, -225, 12300, 9600}));
}

TEST_F(NotebookTest, BelowItsNaturalSizeItSnapsBackAndTheTextFollows)
{
    frmBloccoNote &form = Open();
    children.Resize(form, 100, 9900);
    EXPECT_EQ(form.place.Get(), (Place{0, 0, 12000, 9900}));
    EXPECT_EQ(Entry(11).Height, 9900);
    EXPECT_EQ(form.Text1.place.Get(), (Place{60, 60, form.ScaleWidth() - 120, form.ScaleHeight() - 360}));
    children.Resize(form, 12600, 100);
    EXPECT_EQ(form.place.Get(), (Place{0, 0, 12600, 9000}));
    EXPECT_EQ(form.Text1.place.Get(), (Place{60, 60, form.ScaleWidth() - 120, form.ScaleHeight() - 360}));
    EXPECT_EQ(form.lblStato.place.Get().top, form.ScaleHeight() - 300);
}

TEST_F(NotebookTest, MinimisedItsStateIs2AndRestored1)
{
    frmBloccoNote &form = Open();
    children.Minimise(form);
    EXPECT_EQ(Entry(11).State, 2);
    children.Restore(form);
    EXPECT_EQ(Entry(11).State, 1);
}

TEST_F(NotebookTest, AFileThatCannotBeOpenedEndsTheCommandWithItsMessage)
{
    FailNext(FileFault::Operation::Open, FileError::kPathFileAccess);
    run.Choose(menu.mnuBloccoNote);
    EXPECT_EQ(TheBox(), "Opening Velluto-Notebook.txt: Read only file");
    EXPECT_EQ(notes.notebook, nullptr);
    EXPECT_TRUE(menu.mnuBloccoNote.enabled);
    EXPECT_EQ(children.ChildCount, 0);
    EXPECT_EQ(Entry(11).State, 0);
}

TEST_F(NotebookTest, AFolderInPlaceOfItsFileIsTold)
{
    std::filesystem::create_directory(run.At(kNotebook));
    run.Choose(menu.mnuBloccoNote);
    EXPECT_EQ(TheBox(), "Opening Velluto-Notebook.txt: Read only file");
    EXPECT_EQ(notes.notebook, nullptr);
}

TEST_F(NotebookTest, AReadThatFailsIsToldAndTheFileStaysAsItIs)
{
    PutFile(kNotebook, Record("precious"));
    FailNext(FileFault::Operation::Read, FileError::kDeviceError);
    run.Choose(menu.mnuBloccoNote);
    EXPECT_EQ(TheBox(), "Opening Velluto-Notebook.txt: Error I/O device");
    EXPECT_EQ(notes.notebook, nullptr);
    EXPECT_EQ(File(kNotebook), Record("precious"));
}

TEST_F(NotebookTest, ATextThatCannotBeWrittenIsToldAndStaysInItsWindow)
{
    frmBloccoNote &form = Open();
    Type(form, "precious", 8);
    FailNext(FileFault::Operation::Write, FileError::kDiskFull);
    EXPECT_FALSE(run.Close(form));
    EXPECT_EQ(TheBox(), "Saving Velluto-Notebook.txt: Disk reading error");
    EXPECT_TRUE(children.IsOpen(form));
    EXPECT_EQ(form.Text1.text.Get(), "precious");
    // Once there is room the next close writes it.
    EXPECT_TRUE(run.Close(form));
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(File(kNotebook), Record("precious"));
}

TEST_F(NotebookTest, ClosedTwiceWithoutAChangeItIsGivenUpSoThatTheProgramCanEnd)
{
    Type(Open(), "lost in the end", 15);
    FailNext(FileFault::Operation::Open, FileError::kPathFileAccess, 2);
    EXPECT_FALSE(run.Exit());
    EXPECT_EQ(TheBox(), "Saving Velluto-Notebook.txt: Read only file");
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(TheBox(), "Saving Velluto-Notebook.txt: Read only file");
}

TEST_F(NotebookTest, ATextThatWasChangedSinceIsKeptAnew)
{
    frmBloccoNote &form = Open();
    FailNext(FileFault::Operation::Write, FileError::kDiskFull, 2);
    EXPECT_FALSE(run.Close(form));
    Type(form, "more", 4);
    EXPECT_FALSE(run.Close(form));
    EXPECT_EQ(run.face.boxes.size(), 2U);
    EXPECT_TRUE(run.Close(form));
    EXPECT_EQ(File(kNotebook), Record("more"));
}

TEST_F(NotebookTest, ItsFileTakenAwayOrMadeAFolderWhileItIsOpenIsToldAndTheTextStays)
{
    frmBloccoNote &form = Open();
    Type(form, "precious", 8);
    std::filesystem::remove(run.At(kNotebook));
    std::filesystem::create_directory(run.At(kNotebook));
    EXPECT_FALSE(run.Close(form));
    EXPECT_EQ(TheBox(), "Saving Velluto-Notebook.txt: Read only file");
    EXPECT_EQ(form.Text1.text.Get(), "precious");
    // Taken away altogether it is made anew.
    std::filesystem::remove(run.At(kNotebook));
    EXPECT_TRUE(run.Close(form));
    EXPECT_EQ(File(kNotebook), Record("precious"));
}

TEST_F(NotebookTest, AnUnreadyDiskIsAskedUntilItIsReady)
{
    FailNext(FileFault::Operation::Open, FileError::kDiskNotReady, 2);
    Open();
    EXPECT_EQ(run.face.boxes.size(), 2U);
    EXPECT_EQ(run.face.boxes.back().text, "Disk not ready or not formatted");
}

TEST_F(NotebookTest, AShortTextOfSomebodyElsesIsShownAndKept)
{
    PutFile(kNotebook, "from another\neditor\n");
    frmBloccoNote &form = Open();
    EXPECT_EQ(form.Text1.text.Get(), "from another\r\neditor\r\n");
    run.Close(form);
    EXPECT_EQ(File(kNotebook), Record("from another\r\neditor\r\n"));
}

TEST_F(NotebookTest, WhatALongerFileHoldsBehindTheRecordStaysAndThatIsSaid)
{
    PutFile(kNotebook, Record("page") + "tail");
    frmBloccoNote &form = Open();
    EXPECT_EQ(form.Text1.text.Get(), "page");
    EXPECT_EQ(form.lblStato.caption.Get(), "The file is longer than the notebook: the rest is not shown and stays as it is");
    Type(form, "pages", 5);
    EXPECT_EQ(form.lblStato.caption.Get(), "5 of 32000 characters");
    run.Close(form);
    EXPECT_EQ(File(kNotebook), Record("pages") + "tail");
}

TEST_F(NotebookTest, AForeignTextWithoutRoomForItsLineEndsIsOnlyShownAndWrittenBackAsItWas)
{
    std::string bare(32000, 'x');
    bare[5] = '\n';
    PutFile(kNotebook, bare);
    frmBloccoNote &form = Open();
    EXPECT_EQ(form.Text1.text.Get(), bare);
    EXPECT_TRUE(form.Text1.readOnly);
    EXPECT_EQ(form.lblStato.caption.Get(), "The text is too long to be edited here");
    run.Close(form);
    EXPECT_EQ(File(kNotebook), bare);
}

TEST_F(NotebookTest, AnyBytesComeBackAsTheyWere)
{
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            all += static_cast<char>(byte);
        }
    }
    PutFile(kNotebook, Record(all));
    frmBloccoNote &form = Open();
    Type(form, form.Text1.text.Get() + "!", static_cast<int>(all.size()) + 1);
    run.Close(form);
    EXPECT_EQ(File(kNotebook), Record(all + "!"));
}

TEST_F(NotesTest, TheItalianNotebook)
{
    StartIn(TestProgram::Italian);
    run.Choose(menu.mnuBloccoNote);
    ASSERT_NE(notes.notebook, nullptr);
    frmBloccoNote &form = *notes.notebook;
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - Blocco Note");
    EXPECT_EQ(form.lblStato.caption.Get(), "0 caratteri su 32000");
    form.Text1.caret = 1;
    form.Text1.text = std::string("♯");
    EXPECT_EQ(form.lblStato.caption.Get(), "Il blocco note non può contenere il carattere «♯»");
    form.Text1.caret = 32001;
    form.Text1.text = std::string(32001, 'a');
    EXPECT_EQ(form.lblStato.caption.Get(), "Il blocco note è pieno: contiene 32000 caratteri");
    run.Close(form);
    PutFile(kNotebook, std::string(32001, 'a'));
    run.Choose(menu.mnuBloccoNote);
    ASSERT_NE(notes.notebook, nullptr);
    EXPECT_EQ(notes.notebook->lblStato.caption.Get(), "Il file è più lungo del blocco note: il resto non si vede e rimane com'è");
}

} // namespace
} // namespace velluto::test
