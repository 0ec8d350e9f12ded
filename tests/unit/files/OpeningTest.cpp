// Bringing a file into a window: the Open dialog and the Open commands.
#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

TEST_F(OpeningTest, TheDialogStartsInAppDirUntilAFileHasBeenChosen)
{
    Open("");
    Open(PutFile("a.pcg"));
    app.settings.LastDir = "/last";
    Open("");
    ASSERT_EQ(run.face.dialogs.size(), 3U);
    const FileDialog &first = run.face.dialogs[0];
    EXPECT_EQ(first.mode, FileDialog::Mode::Open);
    EXPECT_EQ(first.title, "Velluto v 1.1- Apri File");
    EXPECT_EQ(first.folder, run.folder->Path());
    EXPECT_EQ(first.filter, "Program (*.pcg)|*.pcg|Style (*.sty)|*.sty|Performance (*.prf)|*.prf|All files (*.*)|*.*|");
    EXPECT_EQ(first.filterIndex, 1);
    EXPECT_EQ(first.proposed, "");
    EXPECT_EQ(run.face.dialogs[2].folder, "/last");
}

TEST_F(OpeningTest, TheDialogBeginsWithTheFilterOfItsType)
{
    EXPECT_EQ(ChooseFile(files, ViewKind::ProgramFile), ChooseOutcome::Nothing);
    EXPECT_EQ(ChooseFile(files, ViewKind::StyleFile), ChooseOutcome::Nothing);
    EXPECT_EQ(ChooseFile(files, ViewKind::PerformanceFile), ChooseOutcome::Nothing);
    ASSERT_EQ(run.face.dialogs.size(), 3U);
    EXPECT_EQ(run.face.dialogs[1].filterIndex, 2);
    EXPECT_EQ(run.face.dialogs[2].filterIndex, 3);
}

TEST_F(OpeningTest, CancelOpensNothingAndSaysNothing)
{
    run.face.choices.push_back({true, PutFile("a.pcg"), 1});
    run.Choose(app.frame.mnuPcgApri);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(app.settings.LastDir, "");
}

struct Outcome {
    std::string name;
    int filterIndex;
    int outcome;
};

TEST_F(OpeningTest, TheNameDecidesTheTypeWhateverTheFilter)
{
    const std::vector<Outcome> table{
        {"a.pcg", 1, 4}, {"a.sty", 1, 5}, {"a.prf", 1, 6}, {"a.txt", 1, 1}, {"a.PCG", 2, 4}, {"a.Sty", 2, 5},  {"a.prf", 2, 6},
        {"a.txt", 2, 1}, {"a.pcg", 3, 4}, {"a.sty", 3, 5}, {"a.pRF", 3, 6}, {"a.txt", 3, 1}, {"a.pcg", 4, 4},  {"a.sty", 4, 5},
        {"a.prf", 4, 6}, {"a.txt", 4, 0}, {"a.pcg", 5, 1}, {"a.pcg", 0, 1}, {"apcg", 1, 4},  {"a.pcgx", 1, 1}, {"pg", 1, 1},
    };
    for (const Outcome &row : table) {
        run.face.choices.push_back({false, PutFile(row.name), row.filterIndex});
        EXPECT_EQ(ChooseFile(files, ViewKind::ProgramFile), row.outcome) << row.name << " with filter " << row.filterIndex;
    }
}

TEST_F(OpeningTest, ANameWithoutADotCountsByItsLastThreeLetters)
{
    Open(PutFile("soundspcg"));
    EXPECT_EQ(Window(1).caption.Get(), "File User: soundspcg (1)");
}

TEST_F(OpeningTest, ReadFailuresAreOutcome1AndAMissingFileOutcome3)
{
    run.face.choices.push_back({false, Put("bad.pcg", {1, 2, 3}), 1});
    EXPECT_EQ(ChooseFile(files, ViewKind::ProgramFile), ChooseOutcome::Nothing);
    run.face.choices.push_back({false, run.At("gone/a.pcg"), 1});
    EXPECT_EQ(ChooseFile(files, ViewKind::ProgramFile), ChooseOutcome::Nothing);
    run.face.choices.push_back({false, run.At("gone.pcg"), 1});
    EXPECT_EQ(ChooseFile(files, ViewKind::ProgramFile), ChooseOutcome::Missing);
    EXPECT_EQ(Boxes().size(), 2U);
}

TEST_F(OpeningTest, AFileComesUpInTheFirstFreeSlotAndOnTopOfTheRecentList)
{
    const std::string path = PutFile("a.pcg");
    files.RecentKind = 3;
    Open(path);
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_EQ(Window(1).caption.Get(), "File User: a.pcg (1)");
    EXPECT_EQ(app.children.Active(), &Window(1));
    EXPECT_EQ(app.children.ChildCount, 1);
    EXPECT_FALSE(app.children.RestoringLayout);
    EXPECT_TRUE(files.programs.openFlags[1]);
    EXPECT_EQ(files.programs.current, 2) << "the next free slot";
    EXPECT_EQ(files.FileFolder, run.folder->Path());
    EXPECT_EQ(files.FileName, "a.pcg");
    EXPECT_EQ(app.settings.LastDir, run.folder->Path());
    EXPECT_EQ(app.settings.RecentTable[1].Path.Trimmed(), path);
    EXPECT_EQ(app.settings.RecentTable[1].Kind, 3);
    EXPECT_TRUE(app.frame.mnuRecentFile[1].visible);
    EXPECT_EQ(files.OpenChainCode, 0);
    EXPECT_EQ(files.KnownFileFlag, 0);
}

TEST_F(OpeningTest, AFileThatIsOpenIsRefused)
{
    const std::string path = PutFile("a.pcg");
    Open(path);
    Open(path);
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: File già aperto"));
}

TEST_F(OpeningTest, AFileThatHasGoneIsTold)
{
    Open(run.At("gone.pcg"));
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di gone.pcg: File assente"));
    EXPECT_FALSE(Exists(run.At("gone.pcg")));
}

TEST_F(OpeningTest, AWriteProtectedFileIsToldAsReadOnly)
{
    const std::string path = PutFile("a.pcg");
    Fail(FileFault::Operation::Open, path, 75);
    Open(path);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: File di sola lettura"));
}

TEST_F(OpeningTest, AStyleOrPerformanceChosenHereOpensAsItsOwnTypeAndMovesLastDir)
{
    std::filesystem::create_directory(run.At("sub"));
    Open(PutFile("sub/a.prf"));
    EXPECT_EQ(app.settings.LastDir, run.At("sub"));
    EXPECT_EQ(files.OpenChainCode, 0);
    Open(PutFile("a.sty"));
    EXPECT_EQ(app.settings.LastDir, run.folder->Path());
    EXPECT_EQ(files.OpenChainCode, 0);
    ASSERT_EQ(app.children.All().size(), 2U);
    EXPECT_EQ(app.children.All()[0]->FullName(), "frmPrfUN(1)");
    EXPECT_EQ(app.children.All()[1]->FullName(), "frmStyUN(1)");
    EXPECT_EQ(run.face.dialogs.size(), 2U) << "the other command shows no dialog of its own";
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpeningTest, WithItsOwnChainCodeTheCommandSkipsTheDialog)
{
    const std::string path = PutFile("a.pcg");
    ASSERT_EQ(ReadInstrumentFile(files, path), ReadStatus::Good);
    NameFile(files, path);
    files.OpenChainCode = ChooseOutcome::Program;
    mnuPcgApri_Click(files);
    EXPECT_THAT(run.face.dialogs, IsEmpty());
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_EQ(files.OpenChainCode, 0);
}

TEST_F(OpeningTest, AForeignFileThroughAllFilesOpensTheLastFileAgain)
{
    const std::string path = PutFile("a.pcg");
    Open(path);
    run.Close(Window(1));
    Open(Put("notes.txt", {1, 2, 3}), 4);
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_EQ(Window(1).caption.Get(), "File User: a.pcg (1)");
    EXPECT_EQ(BytesOf(Window(1).Tag.image), FileOfLength(200));
    EXPECT_EQ(files.KnownFileFlag, 1);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpeningTest, ANamelessChoiceOpensTheLastFileAgainToo)
{
    Open(PutFile("a.pcg"));
    run.Close(Window(1));
    Open("");
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
}

TEST_F(OpeningTest, AForeignFileBeforeAnythingWasOpenedOpensNothing)
{
    Open(Put("notes.txt", {1, 2, 3}), 4);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpeningTest, AMinimisedFileIsReadAgainAndItsWindowBroughtUpAsItIs)
{
    const std::string path = PutFile("a.pcg");
    Open(path);
    frmPcgUN &window = Window(1);
    app.children.Minimise(window);
    Put("a.pcg", FileOfLength(300));
    Open(PutFile("b.pcg"));
    Open(path);
    EXPECT_THAT(OpenSlots(), ElementsAre(1, 2));
    EXPECT_EQ(app.children.Active(), &window);
    EXPECT_EQ(window.windowState.Get(), WindowState::Normal);
    EXPECT_EQ(Record(1).State, 1);
    EXPECT_EQ(files.LoadImage.size(), 300U) << "the file was loaded again";
    EXPECT_EQ(window.Tag.image.size(), 200U) << "but the window was not";
    EXPECT_EQ(app.children.ChildCount, 2);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpeningTest, AFileLastSeenInSlot4GoesToSlot4)
{
    for (int i = 1; i <= 4; ++i) {
        Open(PutFile("file" + std::to_string(i) + ".pcg"));
    }
    for (int slot = 1; slot <= 4; ++slot) {
        run.Close(Window(slot));
    }
    Open(run.At("file4.pcg"));
    EXPECT_THAT(OpenSlots(), ElementsAre(4));
    EXPECT_EQ(files.KnownFileFlag, 1);
    EXPECT_EQ(files.PcgFileSlot, 4);
    EXPECT_EQ(files.programs.current, 1);
    EXPECT_TRUE(files.programs.openFlags[4]);
}

TEST_F(OpeningTest, EightOpenWindowsDisableTheCommandAndAClosedOneEnablesIt)
{
    OpenEight();
    EXPECT_THAT(OpenSlots(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_FALSE(app.frame.mnuPcgApri.enabled);
    EXPECT_EQ(files.programs.current, 9);
    run.Close(Window(5));
    EXPECT_TRUE(app.frame.mnuPcgApri.enabled);
    Open(PutFile("ninth.pcg"));
    EXPECT_EQ(Window(5).caption.Get(), "File User: ninth.pcg (5)");
    EXPECT_FALSE(app.frame.mnuPcgApri.enabled);
}

TEST_F(OpeningTest, WithEightOpenWindowsTheCommandItselfStaysSilent)
{
    OpenEight();
    run.face.dialogs.clear();
    mnuPcgApri_Click(files);
    EXPECT_THAT(run.face.dialogs, IsEmpty());
    EXPECT_EQ(files.programs.current, 0);
}

TEST_F(OpeningTest, ANewDocumentInheritsTheRestOfTheRecordOfSlot8)
{
    Record(1).Role = 3;
    Record(8).Role = 11;
    Open(PutFile("a.pcg"));
    EXPECT_EQ(Record(1).Role, 11);
    EXPECT_EQ(Record(8).Path.Trimmed(), "");
}

TEST_F(OpeningTest, APathThatFitsNoRecordIsRefused)
{
    const std::string folder = run.At(std::string(200, 'f'));
    std::filesystem::create_directory(folder);
    const std::string path = folder + kPathSeparator + std::string(40, 'n') + ".pcg";
    WriteBytes(path, FileOfLength(200));
    run.files.calls.clear();
    Open(path);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di " + std::string(40, 'n') + ".pcg: Impossibile trovare il percorso"));
    EXPECT_THAT(run.files.calls, IsEmpty());
    EXPECT_THAT(OpenSlots(), IsEmpty());
}

TEST_F(OpeningTest, APathOf234BytesFits)
{
    const std::size_t rest = 234 - run.folder->Path().size() - 1 - 4;
    Open(PutFile(std::string(rest, 'n') + ".pcg"));
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_EQ(Record(1).Path.Trimmed().size(), 234U);
    EXPECT_EQ(Window(1).Tag.Path(), Record(1).Path.Trimmed());
}

TEST_F(OpeningTest, NamesMayHoldAnyUnicodeAndBackslashes)
{
    if (kPathSeparator == '\\') {
        std::filesystem::create_directory(PathOfUtf8(run.At("Città e"))); // where a backslash is in no name
    }
    const std::string path = PutFile("Città e\\caffè ♪.pcg");
    Open(path);
    EXPECT_EQ(Window(1).Tag.Path(), path);
    EXPECT_EQ(Window(1).caption.Get(), "File User: caffè ♪.pcg (1)");
    EXPECT_EQ(BytesOf(Window(1).Tag.image), FileOfLength(200));
}

} // namespace
} // namespace velluto::test
