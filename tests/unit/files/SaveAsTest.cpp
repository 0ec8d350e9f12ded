// Writing the image of a window to a file of another name: Save As, and what happens when that fails.
#include "unit/files/EditedWindows.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

class SaveAsTest : public EditedWindowsTest {};

TEST_F(SaveAsTest, TheDialogOffersUntitledEvenForANamedFile)
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

TEST_F(SaveAsTest, TheKindDecidesFilterAndExtension)
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

TEST_F(SaveAsTest, SaveAsWritesTheNewFileAndTheWindowTakesItsName)
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

TEST_F(SaveAsTest, TheNewNameReplacesAnOldFileOfThatName)
{
    OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = Put("b.pcg", FileOfLength(9000));
    SaveAs(path);
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SaveAsTest, ANewFileKeepsItsSlotAfterItsFirstSaveAs)
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

TEST_F(SaveAsTest, ANewFileWithoutAPasteIsWrittenEmptyAndLaterFoundMissing)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    SaveAs(run.At("new.pcg"));
    ASSERT_TRUE(Exists(run.At("new.pcg")));
    EXPECT_EQ(ReadBytes(run.At("new.pcg")), Bytes{});
    Open(run.At("new.pcg"));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di new.pcg: File assente"));
    EXPECT_FALSE(Exists(run.At("new.pcg")));
}

TEST_F(SaveAsTest, ANewPerformanceFileWithoutAPasteIsWrittenEmptyToo)
{
    run.Choose(app.frame.mnuPrfNuovo);
    ASSERT_TRUE(app.children.Active()->Tag.image.empty());
    SaveAs(run.At("new.prf"));
    ASSERT_TRUE(Exists(run.At("new.prf")));
    EXPECT_EQ(ReadBytes(run.At("new.prf")), Bytes{});
    Open(run.At("new.prf"));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di new.prf: File assente"));
    EXPECT_FALSE(Exists(run.At("new.prf")));
}

TEST_F(SaveAsTest, OnlyProgramSlotsAreLookedThroughForTheOldPath)
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

TEST_F(SaveAsTest, ACancelledSaveAsLeavesTheTagAsItWas)
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

TEST_F(SaveAsTest, AnEmptyNameSavesNothingAndIsNoFailure)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    run.face.choices.push_back({false, "", 1});
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(SaveAsTest, SaveAsRepeatsOnAFullDiskAndOnOneThatIsNotReady)
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

TEST_F(SaveAsTest, AnyOtherFailureOfSaveAsIsAWritingError)
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

TEST_F(SaveAsTest, TheNumberOfACancelEndsSaveAsWithoutAWord)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("b.pcg");
    Fail(FileFault::Operation::Write, path, 32755);
    run.face.choices.push_back({false, path, 1});
    EXPECT_EQ(SaveDocumentAs(files, window.Tag), 1);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(SaveAsTest, ANameThatFitsNoRecordIsRefusedBeforeAnythingIsWritten)
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

} // namespace
} // namespace velluto::test
