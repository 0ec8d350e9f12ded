// Writing the image of a window to disk: Save, Save As, and what happens when that fails.
#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

class SavingTest : public FilesTest {
protected:
    // Opens a file and puts another image into its window, as an edit does.
    frmPcgUN &OpenEdited(const std::string &name, const Bytes &edited)
    {
        Open(Put(name, FileOfLength(200)));
        Form *active = app.children.Active();
        active->Tag.image = ImageOf(edited);
        MarkModified(*active);
        return Window(active->number());
    }
    void NewEdited(const Bytes &edited)
    {
        run.Choose(app.frame.mnuPcgNuovo64);
        Window(11).Tag.image = ImageOf(edited);
        MarkModified(Window(11));
    }
};

// --- Save

TEST_F(SavingTest, SaveWritesTheImageExactlyAndClearsTheMark)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(777));
    EXPECT_TRUE(run.Choose(app.frame.mnuSalva));
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), FileOfLength(777));
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 0);
    EXPECT_EQ(app.CurrentOperation, "Salva a.pcg");
    EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(777));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SavingTest, ImagesAroundTheBlockLengthAreWrittenWhole)
{
    frmPcgUN &window = OpenEdited("a.pcg", {});
    for (const std::size_t length : {0U, 1U, 4999U, 5000U, 5001U, 10000U, 123456U}) {
        Bytes bytes(length);
        for (std::size_t i = 0; i < length; ++i) {
            bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
        }
        window.Tag.image = ImageOf(bytes);
        EXPECT_EQ(SaveDocument(files, window.Tag), 0);
        EXPECT_EQ(ReadBytes(run.At("a.pcg")), bytes) << length;
    }
}

TEST_F(SavingTest, ASaveThroughALinkReachesItsTarget)
{
    Put("real.pcg", FileOfLength(200));
    std::filesystem::create_symlink("real.pcg", run.At("link.pcg"));
    Open(run.At("link.pcg"));
    app.children.Active()->Tag.image = ImageOf(FileOfLength(300));
    EXPECT_EQ(SaveDocument(files, app.children.Active()->Tag), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(run.At("link.pcg")));
    EXPECT_EQ(ReadBytes(run.At("real.pcg")), FileOfLength(300));
}

TEST_F(SavingTest, TheOldFileIsDeletedFirst)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    run.files.calls.clear();
    const std::string path = run.At("a.pcg");
    SaveDocument(files, window.Tag);
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "delete " + path, "open " + path, "write " + path));
}

TEST_F(SavingTest, AFileThatHasGoneIsMadeAnew)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("a.pcg");
    std::filesystem::remove(path);
    run.files.calls.clear();
    EXPECT_EQ(SaveDocument(files, window.Tag), 0);
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "write " + path));
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SavingTest, SaveOfAFileThatIsProtectedSaysSo)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    Fail(FileFault::Operation::Open, run.At("a.pcg"), 75);
    run.Choose(app.frame.mnuSalva);
    EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: File di sola lettura"));
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), FileOfLength(200));
}

TEST_F(SavingTest, FailuresOfSaveAreToldByTheirNumbers)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::vector<std::pair<int, std::string>> told{{56, "Errore I/O periferica"},
                                                        {57, "Errore di lettura da disco"},
                                                        {61, "Errore di lettura da disco"},
                                                        {75, "File di sola lettura"},
                                                        {76, "Impossibile trovare il percorso"}};
    for (const auto operation : {FileFault::Operation::Open, FileFault::Operation::Delete, FileFault::Operation::Write}) {
        for (const auto &[number, text] : told) {
            Put("a.pcg", FileOfLength(200));
            Fail(operation, run.At("a.pcg"), number);
            EXPECT_EQ(SaveDocument(files, window.Tag), 1) << number;
            EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: " + text)) << number;
            EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
            EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(300)) << "the image stays";
        }
    }
}

TEST_F(SavingTest, SaveRepeatsWhatADiskThatIsNotReadyRefused)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("a.pcg");
    Fail(FileFault::Operation::Open, path, 71);
    Fail(FileFault::Operation::Delete, path, 71);
    Fail(FileFault::Operation::Write, path, 71, 2);
    run.files.calls.clear();
    EXPECT_EQ(SaveDocument(files, window.Tag), 0);
    const std::string box = "Salva a.pcg: Disco non pronto o non formattato";
    EXPECT_THAT(Boxes(), ElementsAre(box, box, box, box));
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "open " + path, "delete " + path, "delete " + path, "open " + path,
                                             "write " + path, "write " + path, "write " + path));
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SavingTest, AFailureWhileWritingLosesTheOldFileButNotTheImage)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    Fail(FileFault::Operation::Write, run.At("a.pcg"), 61);
    EXPECT_EQ(SaveDocument(files, window.Tag), 1);
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), Bytes{});
    EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(300));
    SaveAs(run.At("elsewhere.pcg"));
    EXPECT_EQ(ReadBytes(run.At("elsewhere.pcg")), FileOfLength(300)) << "saved again elsewhere";
}

TEST_F(SavingTest, AFolderThatHasGoneIsAPathNotFound)
{
    std::filesystem::create_directory(run.At("sub"));
    frmPcgUN &window = OpenEdited("sub/a.pcg", FileOfLength(300));
    std::filesystem::remove_all(run.At("sub"));
    EXPECT_EQ(SaveDocument(files, window.Tag), 1);
    EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: Impossibile trovare il percorso"));
}

TEST_F(SavingTest, SaveOfANewFileAsksForItsName)
{
    NewEdited(FileOfLength(300));
    run.face.choices.push_back({false, run.At("new.pcg"), 1});
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(run.face.dialogs.size(), 1U);
    EXPECT_EQ(ReadBytes(run.At("new.pcg")), FileOfLength(300));
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(run.face.dialogs.size(), 1U) << "now it has a path";
}

TEST_F(SavingTest, TheFirstBankIsKeptFromTheMenuButNotTheSecond)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Press(Window(1).CommUser[9]);
    Press(Window(1).CommUser[10]);
    run.Choose(app.frame.mnuPcgUser[9]);
    EXPECT_FALSE(run.Choose(app.frame.mnuSalva));
    run.Choose(app.frame.mnuPcgUser[10]);
    EXPECT_TRUE(run.Choose(app.frame.mnuSalva));
}

TEST_F(SavingTest, WithoutAChildTheCommandsDoNothing)
{
    mnuSalva_Click(files);
    mnuSalvaAs_Click(files);
    EXPECT_THAT(run.face.dialogs, IsEmpty());
}

// --- Save As

TEST_F(SavingTest, TheDialogOffersUntitledEvenForANamedFile)
{
    Open(Put("a.pcg", FileOfLength(200)));
    app.settings.LastDir = "/last";
    run.face.dialogs.clear();
    run.Choose(app.frame.mnuSalvaAs);
    ASSERT_EQ(run.face.dialogs.size(), 1U);
    const FileDialog &dialog = run.face.dialogs[0];
    EXPECT_EQ(dialog.mode, FileDialog::Mode::Save);
    EXPECT_EQ(dialog.title, "Salva file come");
    EXPECT_EQ(dialog.folder, "/last");
    EXPECT_EQ(dialog.filter, "Program (*.pcg)|*.pcg| Style (*.sty)|*.sty| Performance (*.prf)|*.prf| All files (*.*)|*.*|");
    EXPECT_EQ(dialog.filterIndex, 1);
    EXPECT_EQ(dialog.extension, "pcg");
    EXPECT_EQ(dialog.proposed, "SenzaNome.pcg");
}

TEST_F(SavingTest, TheKindDecidesFilterAndExtension)
{
    struct Row {
        int kind;
        int filterIndex;
        std::string extension;
    };
    const std::vector<Row> rows{{14, 1, "pcg"}, {18, 1, "pcg"}, {19, 1, "pcg"}, {20, 2, "sty"},
                                {21, 2, "sty"}, {22, 3, "prf"}, {23, 3, "prf"}};
    for (const Row &row : rows) {
        WindowTag tag;
        tag.prefix = TagPrefix();
        tag.Set(TagPosition::Kind, row.kind);
        run.face.dialogs.clear();
        EXPECT_EQ(SaveDocumentAs(files, tag), 1) << "cancelled";
        ASSERT_EQ(run.face.dialogs.size(), 1U);
        EXPECT_EQ(run.face.dialogs[0].filterIndex, row.filterIndex);
        EXPECT_EQ(run.face.dialogs[0].extension, row.extension);
        EXPECT_EQ(run.face.dialogs[0].proposed, "SenzaNome." + row.extension);
    }
    run.face.dialogs.clear();
    for (const int kind : {0, 2, 9, 13, 17, 24, 28, 29}) {
        EXPECT_EQ(SaveDocumentAs(files, ToolTag(kind)), 0) << kind;
    }
    EXPECT_THAT(run.face.dialogs, IsEmpty());
}

TEST_F(SavingTest, SaveAsWritesTheNewFileAndTheWindowTakesItsName)
{
    std::filesystem::create_directory(run.At("sub"));
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("sub/b.pcg");
    SaveAs(path);
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), FileOfLength(200)) << "the old file stays";
    EXPECT_EQ(window.Tag.Path(), path);
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 0);
    EXPECT_EQ(window.Tag.prefix.size(), 270U);
    EXPECT_EQ(window.caption.Get(), "File User: b.pcg (1)");
    EXPECT_EQ(Record(1).Path.Trimmed(), path) << "its slot goes with it";
    EXPECT_EQ(app.settings.LastDir, run.At("sub"));
    EXPECT_EQ(files.FileFolder, run.At("sub"));
    EXPECT_EQ(files.FileName, "b.pcg");
    EXPECT_EQ(app.CurrentOperation, "Salva b.pcg");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SavingTest, TheNewNameReplacesAnOldFileOfThatName)
{
    OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = Put("b.pcg", FileOfLength(9000));
    SaveAs(path);
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SavingTest, ANewFileKeepsItsSlotAfterItsFirstSaveAs)
{
    NewEdited(FileOfLength(300));
    SaveAs(run.At("new.pcg"));
    EXPECT_EQ(Window(11).Tag.Slot(), 11);
    EXPECT_EQ(Window(11).Tag.At(TagPosition::Untitled), 0);
    EXPECT_EQ(Window(11).caption.Get(), "Nuovo File: new.pcg");
    EXPECT_FALSE(app.frame.mnuPcgNuovo64.enabled) << "until its window closes";
    EXPECT_TRUE(run.Close(Window(11)));
    EXPECT_TRUE(app.frame.mnuPcgNuovo64.enabled);
}

TEST_F(SavingTest, ANewFileWithoutAPasteIsWrittenEmptyAndLaterFoundMissing)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    SaveAs(run.At("new.pcg"));
    ASSERT_TRUE(Exists(run.At("new.pcg")));
    EXPECT_EQ(ReadBytes(run.At("new.pcg")), Bytes{});
    Open(run.At("new.pcg"));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di new.pcg: File assente"));
    EXPECT_FALSE(Exists(run.At("new.pcg")));
}

TEST_F(SavingTest, OnlyProgramSlotsAreLookedThroughForTheOldPath)
{
    const std::string oldPath = run.At("a.sty");
    app.settings.StyDocTable[3].Path.Set(oldPath);
    Record(5).Path.Set(oldPath);
    Form style("anyChild");
    style.Tag.prefix = TagPrefix();
    style.Tag.Set(TagPosition::Kind, ViewKind::StyleFile);
    style.Tag.Set(TagPosition::Slot, 3);
    style.Tag.SetPath(oldPath);
    app.children.Show(style);
    run.face.choices.push_back({false, run.At("b.sty"), 2});
    EXPECT_EQ(SaveDocumentAs(files, style.Tag), 0);
    EXPECT_EQ(app.settings.StyDocTable[3].Path.Trimmed(), oldPath);
    EXPECT_EQ(Record(5).Path.Trimmed(), run.At("b.sty"));
    EXPECT_EQ(style.Tag.Path(), run.At("b.sty"));
    EXPECT_EQ(style.caption.Get(), "File User: b.sty   (STY)");
    app.children.Unload(style);
}

TEST_F(SavingTest, ACancelledSaveAsLeavesTheTagAsItWas)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string before = window.Tag.prefix;
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 1);
    EXPECT_EQ(window.Tag.prefix, before);
    EXPECT_THAT(Boxes(), IsEmpty());
    run.face.answers.push_back(Box::kYes);
    window.Tag.Set(TagPosition::Untitled, 1);
    EXPECT_FALSE(run.Close(window)) << "and the window open";
}

TEST_F(SavingTest, AnEmptyNameSavesNothingAndIsNoFailure)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    run.face.choices.push_back({false, "", 1});
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(SavingTest, SaveAsRepeatsOnAFullDiskAndOnOneThatIsNotReady)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = Put("b.pcg", FileOfLength(200));
    Fail(FileFault::Operation::Open, path, 71);
    Fail(FileFault::Operation::Delete, path, 61);
    Fail(FileFault::Operation::Write, path, 61, 2);
    run.files.calls.clear();
    SaveAs(path);
    EXPECT_THAT(Boxes(), ElementsAre("Velluto v 1.1: Disco non pronto o non formattato", "Velluto v 1.1: Disco pieno",
                                     "Velluto v 1.1: Disco pieno", "Velluto v 1.1: Disco pieno"));
    EXPECT_EQ(Calls("open " + path), 3);
    EXPECT_EQ(Calls("delete " + path), 2);
    EXPECT_EQ(Calls("write " + path), 3);
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
    EXPECT_EQ(window.Tag.Path(), path);
}

TEST_F(SavingTest, AnyOtherFailureOfSaveAsIsAWritingError)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string before = window.Tag.prefix;
    const std::string path = Put("b.pcg", FileOfLength(200));
    for (const auto operation : {FileFault::Operation::Open, FileFault::Operation::Delete, FileFault::Operation::Write}) {
        for (const int number : {51, 53, 56, 57, 70, 75, 76}) {
            Put("b.pcg", FileOfLength(200));
            Fail(operation, path, number);
            run.face.choices.push_back({false, path, 1});
            EXPECT_EQ(SaveDocumentAs(files, window.Tag), 1) << number;
            EXPECT_THAT(Boxes(), ElementsAre("Velluto v 1.1: Errore di scrittura su disco")) << number;
            EXPECT_EQ(window.Tag.prefix, before);
        }
    }
    SaveAs(run.At("gone/b.pcg"));
    EXPECT_THAT(Boxes(), ElementsAre("Velluto v 1.1: Errore di scrittura su disco"));
    std::filesystem::create_directory(run.At("folder.pcg"));
    SaveAs(run.At("folder.pcg"));
    EXPECT_THAT(Boxes(), ElementsAre("Velluto v 1.1: Errore di scrittura su disco"));
}

TEST_F(SavingTest, TheNumberOfACancelEndsSaveAsWithoutAWord)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("b.pcg");
    Fail(FileFault::Operation::Write, path, 32755);
    run.face.choices.push_back({false, path, 1});
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 1);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(SavingTest, ANameThatFitsNoRecordIsRefusedBeforeAnythingIsWritten)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string before = window.Tag.prefix;
    const std::string name = std::string(230, 'n') + ".pcg";
    run.files.calls.clear();
    run.face.choices.push_back({false, run.At(name), 1});
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 1);
    EXPECT_THAT(Boxes(), ElementsAre("Salva " + name + ": Impossibile trovare il percorso"));
    EXPECT_THAT(run.files.calls, IsEmpty());
    EXPECT_EQ(window.Tag.prefix, before);
}

TEST_F(SavingTest, OpenThenSaveIsByteIdenticalForEveryFile)
{
    std::mt19937 random(42);
    for (int round = 0; round < 150; ++round) {
        const Bytes bytes = RandomFile(random);
        const std::string path = Put("random.pcg", bytes);
        Open(path);
        ASSERT_TRUE(HasWindow(1)) << round;
        ASSERT_TRUE(run.Choose(app.frame.mnuSalva));
        ASSERT_EQ(ReadBytes(path), bytes) << round;
        SaveAs(run.At("copy.pcg"));
        ASSERT_EQ(ReadBytes(run.At("copy.pcg")), bytes) << round;
        run.Close(Window(1));
    }
}

class SavingEnglishTest : public EnglishFilesTest {};

TEST_F(SavingEnglishTest, SpeaksEnglish)
{
    Open(Put("a.pcg", FileOfLength(200)));
    run.face.dialogs.clear();
    run.Choose(app.frame.mnuSalvaAs);
    EXPECT_EQ(run.face.dialogs[0].title, "Save file as");
    EXPECT_EQ(run.face.dialogs[0].proposed, "Untitled.pcg");
    Fail(FileFault::Operation::Open, run.At("a.pcg"), 75);
    run.Choose(app.frame.mnuSalva);
    EXPECT_THAT(Boxes(), ElementsAre("Saving a.pcg: Read only file"));
}

} // namespace
} // namespace velluto::test
