// The rows of a Program window and its state text.
#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

const std::string kBlanks16(16, ' ');

class ProgramRowsTest : public ProgramWindowTest {};

TEST_F(ProgramRowsTest, OccupiedPlacesShowTheirNameAndEmptyOnesTheirNumber)
{
    Open(PutItems("a.pcg", {{"Grand Piano     ", 0, {1}}, {"Organ 16' 8' 4'2", 2, {2}}, {"Vox", 63, {3}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(RowOf(1, 0), " 001 Grand Piano") << "trailing blanks removed";
    EXPECT_EQ(RowOf(1, 1), " 002 ");
    EXPECT_EQ(RowOf(1, 2), " 003 Organ 16' 8' 4'2");
    EXPECT_EQ(RowOf(1, 63), std::string(" 064 Vox         \0\0\0\0", 21)) << "zeros become blanks but for the last four";
}

TEST_F(ProgramRowsTest, ZerosBeforeTrailingBlanksStayBehindAnyOtherCharacter)
{
    const std::string mixed("Piano\0\0\0        ", 16);
    Open(PutItems("a.pcg", {{mixed, 0, {}}, {std::string("\0\0", 2), 1, {}}, {std::string("AB\0CDEFGHIJKLMNO", 16), 2, {}}}));
    EXPECT_EQ(RowOf(1, 0), std::string(" 001 Piano\0\0\0", 13)) << "the fourth from the end is a letter";
    EXPECT_EQ(RowOf(1, 1), std::string(" 002             \0\0\0\0", 21)) << "a name of zeros";
    EXPECT_EQ(RowOf(1, 2), std::string(" 003 AB\0CDEFGHIJKLMNO", 21));
}

TEST_F(ProgramRowsTest, NamesKeepTheirBytes)
{
    Open(PutItems("a.pcg", {{"\xC8 gi\xE0 pi\xF9!!!!!!!", 0, {}}}));
    EXPECT_EQ(RowOf(1, 0), " 001 \xC8 gi\xE0 pi\xF9!!!!!!!");
    EXPECT_EQ(Window(1).List1.encoding, ListBox::Encoding::Windows1252);
}

TEST_F(ProgramRowsTest, OneEntryInSlot64MakesABankOf128Places)
{
    Open(PutItems("a.pcg", {{"Alone           ", 64, {}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 128);
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Places), 128);
    EXPECT_EQ(RowOf(1, 63), " 064 ");
    EXPECT_EQ(RowOf(1, 64), " 065 Alone");
    EXPECT_EQ(RowOf(1, 127), " 128 ");
}

TEST_F(ProgramRowsTest, AllSlotsUnder64Show64RowsInFourColumns)
{
    std::vector<Item> items;
    for (int slot = 0; slot < 64; ++slot) {
        items.push_back({"Sound " + std::to_string(slot), slot, {7}});
    }
    Open(PutItems("a.pcg", items));
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(Window(1).List1.columns, 4);
    EXPECT_TRUE(Window(1).List1.multiSelect);
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Places), 64);
    EXPECT_EQ(RowOf(1, 63).substr(0, 13), " 064 Sound 63");
}

TEST_F(ProgramRowsTest, AFileWithoutItemsShows64RowsOf16Blanks)
{
    const std::string path = Put("empty.pcg", InstrumentFile({}));
    ASSERT_EQ(ReadBytes(path).size(), 60U);
    Open(path);
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(RowOf(1, 0), " 001 " + kBlanks16);
    EXPECT_EQ(RowOf(1, 63), " 064 " + kBlanks16);
    EXPECT_EQ(Window(1).Tag.image.size(), 60U);
}

TEST_F(ProgramRowsTest, AnEntryOutOfOrderHidesAllLaterOnes)
{
    Open(PutItems("a.pcg", {{"First           ", 5, {}}, {"Back            ", 4, {}}, {"Later           ", 6, {}}}));
    EXPECT_EQ(RowOf(1, 5), " 006 First");
    EXPECT_EQ(RowOf(1, 4), " 005 ");
    EXPECT_EQ(RowOf(1, 6), " 007 ");
}

TEST_F(ProgramRowsTest, ASlotByteOf128OrMoreGetsNoRow)
{
    Open(PutItems("a.pcg", {{"First           ", 5, {}}, {"Nowhere         ", 200, {}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 128);
    EXPECT_EQ(RowOf(1, 5), " 006 First");
    for (int row = 0; row < 128; ++row) {
        EXPECT_EQ(RowOf(1, row).find("Nowhere"), std::string::npos);
    }
}

TEST_F(ProgramRowsTest, BehindTheLastEntryNothingIsReadAsOne)
{
    Bytes body(24, 0x7E);
    body[20] = 5;
    Open(PutItems("a.pcg", {{"Grand Piano", 0, body}}));
    EXPECT_EQ(RowOf(1, 5), " 006 ");
}

TEST_F(ProgramRowsTest, ADirectoryThatRunsBeyondTheEndShowsWhatThereIs)
{
    Bytes file = InstrumentFile({{"First           ", 0, {}}});
    file[34] = 0x0B; // 118 entries are claimed
    file[35] = 0x10;
    file.resize(36 + 24 + 10); // one is there, and ten characters of the next
    file.back() = 119;
    Open(Put("a.pcg", file));
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(RowOf(1, 0), " 001 First");
    EXPECT_EQ(RowOf(1, 1), " 002 ");
}

TEST_F(ProgramRowsTest, DamagedFilesShowTheirRowsWithoutHarm)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        Bytes file = RandomFile(random);
        for (std::size_t i = 34; i < file.size(); ++i) {
            file[i] = random() % 4 == 0 ? static_cast<std::uint8_t>(random()) : file[i];
        }
        file.resize(36 + random() % (file.size() - 35));
        file.back() = static_cast<std::uint8_t>(CountItems(file) + 1);
        if (CountItems(file) > 254) {
            continue;
        }
        Open(Put("damaged.pcg", file));
        ASSERT_TRUE(HasWindow(1)) << round;
        const int rows = Window(1).List1.ListCount();
        ASSERT_TRUE(rows == 64 || rows == 128);
        ASSERT_TRUE(run.Close(Window(1)));
        ASSERT_FALSE(HasWindow(1));
    }
}

TEST_F(ProgramRowsTest, TheTagOfAFileHoldsItsFieldsAndTheWholeFile)
{
    const Bytes bytes = FileOfLength(500);
    const std::string path = Put("a.pcg", bytes);
    Record(1).Role = 7;
    Record(8).Role = 5; // what a file never seen before inherits
    files.RecentKind = 9;
    Open(path);
    const WindowTag &tag = Window(1).Tag;
    std::string expected(20, '\0');
    expected[0] = 14;
    expected[1] = 9;
    expected[2] = 64;
    expected[14] = 1;
    expected[15] = 5;
    expected[16] = 1;
    expected += path + std::string(234 - path.size(), ' ') + std::string(16, ' ');
    EXPECT_EQ(tag.prefix, expected);
    EXPECT_EQ(BytesOf(tag.image), bytes);
}

TEST_F(ProgramRowsTest, ANewFileOf128PlacesHasRowsAndNoImage)
{
    EXPECT_TRUE(run.Choose(app.frame.mnuPcgNuovo128));
    const frmPcgUN &window = Window(12);
    EXPECT_EQ(window.List1.ListCount(), 128);
    EXPECT_EQ(RowOf(12, 0), " 001 " + kBlanks16);
    EXPECT_EQ(RowOf(12, 127), " 128 " + kBlanks16);
    EXPECT_TRUE(window.Tag.image.empty());
    std::string expected(20, '\0');
    expected[0] = 14;
    expected[2] = static_cast<char>(128);
    expected[14] = 12;
    expected[17] = 1;
    expected += "SenzaNome.pcg" + std::string(250 - 13, ' ');
    EXPECT_EQ(window.Tag.prefix, expected);
    EXPECT_EQ(window.caption.Get(), "Nuovo File: SenzaNome.pcg");
    EXPECT_EQ(app.ViewKind, ViewKind::ProgramFile);
    EXPECT_EQ(Record(12).Path.Trimmed(), "") << "the invented name stays in the window";
}

TEST_F(ProgramRowsTest, ANewFileHasItsOwnPlacesWhateverWasReadBefore)
{
    Open(PutItems("large.pcg", {{"Alone", 64, {}}}));
    run.Choose(app.frame.mnuPcgNuovo64);
    EXPECT_EQ(Window(11).List1.ListCount(), 64);
    Open(PutItems("small.pcg", {{"Alone", 63, {}}}));
    run.Choose(app.frame.mnuPcgNuovo128);
    EXPECT_EQ(Window(12).List1.ListCount(), 128);
}

TEST_F(ProgramRowsTest, NewFilesTakeTheirEntriesUntilTheyClose)
{
    frmMain &menu = app.frame;
    EXPECT_TRUE(run.Choose(menu.mnuPcgNuovo64));
    EXPECT_EQ(Window(11).List1.ListCount(), 64);
    EXPECT_EQ(Window(11).Tag.At(TagPosition::Places), 64);
    EXPECT_FALSE(menu.mnuPcgNuovo64.enabled);
    EXPECT_TRUE(menu.mnuPcgNuovo128.enabled);
    EXPECT_TRUE(run.Choose(menu.mnuPcgNuovo128));
    EXPECT_FALSE(menu.mnuPcgNuovo128.enabled);
    EXPECT_FALSE(run.Choose(menu.mnuPcgNuovo64));
    EXPECT_EQ(app.children.ChildCount, 2);
    EXPECT_TRUE(run.Close(Window(11)));
    EXPECT_TRUE(menu.mnuPcgNuovo64.enabled);
    EXPECT_FALSE(menu.mnuPcgNuovo128.enabled);
    EXPECT_TRUE(run.Close(Window(12)));
    EXPECT_TRUE(menu.mnuPcgNuovo128.enabled);
}

class ProgramRowsEnglishTest : public EnglishFilesTest {};

TEST_F(ProgramRowsEnglishTest, NamesTheNewFileAndTheButtonInEnglish)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    EXPECT_EQ(Window(11).Tag.Path(), "Untitled.pcg");
    EXPECT_EQ(Window(11).caption.Get(), "Nuovo File: Untitled.pcg");
    EXPECT_EQ(Window(11).CommClose.caption.Get(), "&Close");
}

} // namespace
} // namespace velluto::test
