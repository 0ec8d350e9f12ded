// Document slots: the records of the three types, their open flags, and how a slot is found.
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

class SlotsTest : public FilesTest {
protected:
    // The record of a slot in the table of the type.
    static DocRecord &Slot(const DocumentType &type, int slot) { return type.table[static_cast<std::size_t>(slot)]; }
};

TEST_F(SlotsTest, TheTablesHaveTheirSlots)
{
    EXPECT_EQ(files.programs.table.size(), 13U) << "1 to 12";
    EXPECT_EQ(files.styles.table.size(), 21U) << "0 to 20";
    EXPECT_EQ(files.performances.table.size(), 29U) << "0 to 28";
}

TEST_F(SlotsTest, TheFirstFreeSlotIsTheFirstWithoutAnOpenFlag)
{
    EXPECT_EQ(FindFree(files.programs), 1);
    EXPECT_EQ(FindFree(files.styles), 1);
    EXPECT_EQ(FindFree(files.performances), 1);
    for (DocumentType &type : files.types) {
        auto &flags = type.openFlags;
        flags[1] = flags[2] = flags[4] = true;
        EXPECT_EQ(FindFree(type), 3);
        flags[3] = true;
        EXPECT_EQ(FindFree(type), 5);
    }
}

TEST_F(SlotsTest, AllEightTakenGivesZero)
{
    files.styles.openFlags.fill(true);
    EXPECT_EQ(FindFree(files.styles), 0);
    EXPECT_EQ(FindFree(files.programs), 1);
    files.styles.openFlags[8] = false;
    EXPECT_EQ(FindFree(files.styles), 8);
}

TEST_F(SlotsTest, FindOpenNeedsState1AndTheExactPath)
{
    for (DocumentType &type : files.types) {
        Slot(type, 3).Path.Set("/music/a.ext");
        EXPECT_FALSE(FindOpen(type, "/music/a.ext"));
        Slot(type, 3).State = 2;
        EXPECT_FALSE(FindOpen(type, "/music/a.ext")) << "minimised does not count";
        Slot(type, 3).State = 1;
        EXPECT_TRUE(FindOpen(type, "/music/a.ext"));
        EXPECT_EQ(type.work.Path.Trimmed(), "/music/a.ext") << "the working record stays where it stopped";
        EXPECT_FALSE(FindOpen(type, "/music/A.ext"));
        EXPECT_FALSE(FindOpen(type, "/music/a.ex"));
    }
}

TEST_F(SlotsTest, FindKnownLooksAtThePathAlone)
{
    for (DocumentType &type : files.types) {
        Slot(type, 4).Path.Set("/music/a.ext");
        Slot(type, 6).Path.Set("/music/a.ext");
        EXPECT_EQ(FindKnown(type, "/music/a.ext"), 4);
        EXPECT_EQ(FindKnown(type, "/music/b.ext"), 0);
    }
}

TEST_F(SlotsTest, BanksAndNewFilesAreNotFound)
{
    Record(9).Path.Set("/music/a.pcg");
    Record(9).State = 1;
    Record(11).Path.Set("/music/a.pcg");
    EXPECT_EQ(FindKnown(files.programs, "/music/a.pcg"), 0);
    EXPECT_EQ(FindOpen(files.programs, "/music/a.pcg"), 0);
    app.settings.StyDocTable[0].Path.Set("/music/a.sty");
    EXPECT_EQ(FindKnown(files.styles, "/music/a.sty"), 0);
    app.settings.PrfDocTable[28].Path.Set("/music/a.prf");
    EXPECT_EQ(FindKnown(files.performances, "/music/a.prf"), 0);
}

TEST_F(SlotsTest, AMissLeavesSlot8InTheWorkingRecord)
{
    for (DocumentType &type : files.types) {
        Slot(type, 8).Role = 13;
        Slot(type, 1).Role = 1;
        EXPECT_EQ(FindKnown(type, "/music/none.ext"), 0);
        EXPECT_EQ(type.work.Role, 13);
        TakeSlot(type, 1);
        EXPECT_FALSE(FindOpen(type, "/music/none.ext"));
        EXPECT_EQ(type.work.Role, 13);
    }
}

TEST_F(SlotsTest, EachTypeHasItsOwnFunctions)
{
    Record(2).Path.Set("/music/a");
    app.settings.StyDocTable[3].Path.Set("/music/a");
    app.settings.PrfDocTable[4].Path.Set("/music/a");
    EXPECT_EQ(FindKnown(files.programs, "/music/a"), 2);
    EXPECT_EQ(FindKnown(files.styles, "/music/a"), 3);
    EXPECT_EQ(FindKnown(files.performances, "/music/a"), 4);
    app.settings.StyDocTable[3].State = 1;
    EXPECT_EQ(FindOpen(files.programs, "/music/a"), 0);
    EXPECT_EQ(FindOpen(files.styles, "/music/a"), 1);
    app.settings.PrfDocTable[4].State = 1;
    EXPECT_EQ(FindOpen(files.performances, "/music/a"), 1);
}

TEST_F(SlotsTest, AClosedSlotKeepsItsPathUntilItIsReused)
{
    for (const char *name : {"a.pcg", "b.pcg", "c.pcg"}) {
        Open(Put(name, FileOfLength(200)));
    }
    run.Close(Window(3));
    EXPECT_EQ(Record(3).Path.Trimmed(), run.At("c.pcg"));
    EXPECT_EQ(Record(3).State, 0);
    EXPECT_FALSE(files.programs.openFlags[3]);
    Open(Put("d.pcg", FileOfLength(200)));
    EXPECT_EQ(Window(3).caption.Get(), "File User: d.pcg (3)");
    EXPECT_EQ(Record(3).Path.Trimmed(), run.At("d.pcg"));
}

TEST_F(SlotsTest, ARecordThatWasNeverPlacedGetsTheDefaultPlacement)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    const Place natural = Window(1).place;
    run.Close(Window(1));
    Record(1).Left = 4000;
    Record(1).MinWidth = 0;
    Open(path);
    EXPECT_EQ(files.KnownFileFlag, 1);
    EXPECT_EQ(Window(1).place.Get(), natural);
}

TEST_F(SlotsTest, AWindowGoesAtItsUnloadAndTheNextUseMakesAFreshOne)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    Window(1).List1.Select(3, true);
    EXPECT_EQ(Window(1).FullName(), "frmPcgUN(1)");
    run.Close(Window(1));
    EXPECT_FALSE(HasWindow(1));
    Open(path);
    EXPECT_FALSE(Window(1).List1.Selected(3));
}

TEST_F(SlotsTest, DocumentsShareOneImageWithoutACopy)
{
    Open(Put("a.pcg", FileOfLength(200)));
    EXPECT_EQ(Window(1).Tag.image.Runs().front().data(), files.LoadImage.Runs().front().data());
}

TEST_F(SlotsTest, AnEventDuringALoadChangesNoRecord)
{
    Open(Put("a.pcg", FileOfLength(200)));
    const DocRecord before = Record(1);
    files.programs.work.Path.Set("the record of a load in progress");
    app.children.RestoringLayout = true;
    app.children.Resize(Window(1), 20000, 20000);
    app.children.Minimise(Window(1));
    app.children.RestoringLayout = false;
    EXPECT_EQ(Record(1).Width, before.Width);
    EXPECT_EQ(Record(1).State, before.State);
    EXPECT_EQ(files.programs.work.Path.Trimmed(), "the record of a load in progress");
}

} // namespace
} // namespace velluto::test
