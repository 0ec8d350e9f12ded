// Opening without a dialog: the user banks of the View menu and the recent files.
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

class BankTest : public OpeningTest {
protected:
    // Ties the file to User 1 and closes its own window.
    void Tie(const std::string &path)
    {
        Open(path);
        Press(Window(1).CommUser[9]);
        run.Close(Window(1));
    }
};

TEST_F(BankTest, OpensTheFileAssignedToIt)
{
    const std::string path = PutFile("a.pcg");
    Tie(path);
    EXPECT_TRUE(run.Choose(app.frame.mnuPcgUser[9]));
    EXPECT_THAT(OpenSlots(), ElementsAre(9));
    EXPECT_EQ(Window(9).Tag.Path(), path);
    EXPECT_EQ(Window(9).Tag.At(TagPosition::Role), 2) << "the role of the bank's own record";
    EXPECT_FALSE(app.frame.mnuPcgUser[9].enabled);
    EXPECT_EQ(files.programs.current, 9);
}

TEST_F(BankTest, AFileThatHasGoneIsToldToNobody)
{
    const std::string path = PutFile("a.pcg");
    Tie(path);
    std::filesystem::remove(path);
    EXPECT_TRUE(run.Choose(app.frame.mnuPcgUser[9]));
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_TRUE(app.frame.mnuPcgUser[9].enabled);
    EXPECT_FALSE(Exists(path));
}

TEST_F(BankTest, AFileThatBecameSomethingElseIsTold)
{
    const std::string path = PutFile("a.pcg");
    Tie(path);
    Put("a.pcg", {1, 2, 3});
    run.Choose(app.frame.mnuPcgUser[9]);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: Formato dati errato"));
    EXPECT_TRUE(app.frame.mnuPcgUser[9].enabled);
}

TEST_F(BankTest, APictureAssignedToItPassesAsAFileWithoutItems)
{
    const std::string path = Put("a.bmp", {'B', 'M', 1, 2, 3});
    Record(10).Path.Set(path);
    mnuPcgUser_Click(files, 10);
    EXPECT_THAT(OpenSlots(), ElementsAre(10));
    EXPECT_EQ(Window(10).List1.ListCount(), 64);
    EXPECT_EQ(BytesOf(Window(10).Tag.image), (Bytes{'B', 'M', 1, 2, 3}));
}

TEST_F(BankTest, NumbersThatAreNoBankDoNothing)
{
    mnuPcgUser_Click(files, 8);
    mnuPcgUser_Click(files, 11);
    EXPECT_THAT(OpenSlots(), IsEmpty());
}

class RecentFileTest : public OpeningTest {
protected:
    bool Recent(int index) { return run.Choose(app.frame.mnuRecentFile[index]); }
};

TEST_F(RecentFileTest, AClickOpensTheFileAgainAndPutsItOnTop)
{
    for (const char *name : {"a.pcg", "b.pcg", "c.pcg", "d.pcg", "e.pcg", "f.pcg"}) {
        Open(PutFile(name));
    }
    run.Close(Window(2));
    app.settings.LastDir = "/elsewhere";
    EXPECT_TRUE(Recent(5));
    EXPECT_THAT(OpenSlots(), ElementsAre(1, 3, 4, 5, 6, 2));
    EXPECT_EQ(Window(2).caption.Get(), "File User: b.pcg (2)");
    EXPECT_EQ(app.settings.LastDir, run.folder->Path());
    EXPECT_EQ(files.KnownFileFlag, 1);
    EXPECT_TRUE(files.programs.openFlags[2]);
    std::vector<std::string> names;
    for (int n = 1; n <= 6; ++n) {
        names.push_back(FileNameOf(app.settings.RecentTable[static_cast<std::size_t>(n)].Path.Trimmed()));
    }
    EXPECT_THAT(names, ElementsAre("b.pcg", "f.pcg", "e.pcg", "d.pcg", "c.pcg", "a.pcg"));
    EXPECT_THAT(run.face.dialogs, ::testing::SizeIs(6)) << "without a dialog";
}

TEST_F(RecentFileTest, AFileThatIsOpenIsRefused)
{
    Open(PutFile("a.pcg"));
    Recent(1);
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: File già aperto"));
}

TEST_F(RecentFileTest, AFileThatHasGoneIsToldAndStaysInTheList)
{
    const std::string path = PutFile("a.pcg");
    Open(path);
    run.Close(Window(1));
    std::filesystem::remove(path);
    Recent(1);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: File assente"));
    EXPECT_EQ(app.settings.RecentTable[1].Path.Trimmed(), path);
}

TEST_F(RecentFileTest, ADamagedFileIsToldOnce)
{
    Open(PutFile("a.pcg"));
    run.Close(Window(1));
    Put("a.pcg", {1, 2, 3});
    Recent(1);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: Formato dati errato"));
    EXPECT_THAT(OpenSlots(), IsEmpty());
}

TEST_F(RecentFileTest, OnlyExtensionsInOneCaseAreKnown)
{
    const std::vector<std::pair<std::string, bool>> names{
        {"a.pcg", true}, {"a.PCG", true}, {"a.Pcg", false}, {"apcg", false}, {"a.bmp", false}};
    for (const auto &[name, opens] : names) {
        app.settings.RecentTable[1] = {};
        app.settings.RecentTable[1].Path.Set(PutFile(name));
        mnuRecentFile_Click(files, 1);
        EXPECT_EQ(OpenSlots().size(), opens ? 1U : 0U) << name;
        EXPECT_THAT(Boxes(), IsEmpty()) << name;
        EXPECT_EQ(app.CurrentOperation, "Apertura di " + name);
        while (app.children.Active() != nullptr) {
            run.Close(*app.children.Active());
        }
    }
}

TEST_F(RecentFileTest, WithTheOpenCommandDisabledNothingHappens)
{
    Open(PutFile("first.pcg"));
    run.Close(Window(1));
    OpenEight();
    run.files.calls.clear();
    mnuRecentFile_Click(files, 9);
    EXPECT_EQ(app.CurrentOperation, "Apertura di first.pcg");
    EXPECT_THAT(run.files.calls, IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(RecentFileTest, WithoutAFreeSlotNothingHappens)
{
    OpenEight();
    app.frame.mnuPcgApri.enabled = true;
    app.settings.RecentTable[1].Path.Set(PutFile("ninth.pcg"));
    mnuRecentFile_Click(files, 1);
    EXPECT_EQ(OpenSlots().size(), 8U);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(RecentFileTest, StylesAndPerformancesOpenFromTheirEntries)
{
    app.settings.RecentTable[1].Path.Set(PutFile("a.sty"));
    mnuRecentFile_Click(files, 1);
    app.settings.RecentTable[1].Path.Set(PutFile("a.PRF"));
    mnuRecentFile_Click(files, 1);
    ASSERT_EQ(app.children.All().size(), 2U);
    EXPECT_EQ(app.children.All()[0]->FullName(), "frmStyUN(1)");
    EXPECT_EQ(app.children.All()[1]->FullName(), "frmPrfUN(1)");
    EXPECT_TRUE(files.styles.openFlags[1]);
    EXPECT_TRUE(files.performances.openFlags[1]);
}

TEST_F(RecentFileTest, EmptyEntriesAndNumbersBeyondTheTableDoNothing)
{
    mnuRecentFile_Click(files, 2);
    mnuRecentFile_Click(files, 0);
    mnuRecentFile_Click(files, 17);
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(RecentFileTest, AnEntryInDriveFormIsNoHarm)
{
    app.settings.RecentTable[1].Path.Set("C:\\music\\velluto-gone.pcg");
    mnuRecentFile_Click(files, 1);
    EXPECT_THAT(Boxes(), ElementsAre(kPathSeparator == '/' ? "Apertura di velluto-gone.pcg: File assente" // a name with backslashes
                                                           : "Apertura di velluto-gone.pcg: Impossibile trovare il percorso"));
    EXPECT_EQ(app.settings.LastDir, "C:\\music");
}

class NamedFileTest : public OpeningTest {};

TEST_F(NamedFileTest, AFileOfEachTypeOpensByItsNameInAnyCase)
{
    OpenNamedFile(files, PutFile("a.PcG"));
    OpenNamedFile(files, PutFile("b.sty"));
    OpenNamedFile(files, PutFile("c.PRF"));
    ASSERT_EQ(app.children.All().size(), 3U);
    EXPECT_EQ(app.children.All()[0]->FullName(), "frmPcgUN(1)");
    EXPECT_EQ(app.children.All()[1]->FullName(), "frmStyUN(1)");
    EXPECT_EQ(app.children.All()[2]->FullName(), "frmPrfUN(1)");
    EXPECT_EQ(FileNameOf(app.settings.RecentTable[1].Path.Trimmed()), "c.PRF");
    EXPECT_EQ(app.settings.LastDir, run.folder->Path());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(NamedFileTest, AForeignNameOpensNothingAndSaysNothing)
{
    OpenNamedFile(files, PutFile("a.txt"));
    OpenNamedFile(files, "");
    EXPECT_THAT(OpenSlots(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(NamedFileTest, AnArgumentThatCanNeverOpenIsTold)
{
    OpenArgument(files, run.At("gone.txt"), Argument::Missing);
    OpenArgument(files, run.At("gone.pcg"), Argument::Missing);
    OpenArgument(files, run.At("songs"), Argument::Folder);
    OpenArgument(files, PutFile("a.txt"), Argument::File);
    OpenArgument(files, PutFile("a.mid"), Argument::File);
    OpenArgument(files, PutFile("b.pcg"), Argument::File);
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di gone.txt: File assente", "Apertura di gone.pcg: File assente",
                                     "Apertura di songs: Formato dati errato", "Apertura di a.txt: Formato dati errato"));
}

TEST_F(NamedFileTest, AMissingFileAndOneThatIsOpenAreTold)
{
    const std::string path = PutFile("a.pcg");
    OpenNamedFile(files, path);
    OpenNamedFile(files, path);
    OpenNamedFile(files, run.At("gone.pcg"));
    EXPECT_THAT(OpenSlots(), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: File già aperto", "Apertura di gone.pcg: File assente"));
}

} // namespace
} // namespace velluto::test
