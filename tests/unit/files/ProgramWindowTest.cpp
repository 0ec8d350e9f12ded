// The window of a Program file: rows, place, buttons, closing.
#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

const std::string kBlanks16(16, ' ');

class ProgramWindowTest : public FilesTest {
protected:
    std::string PutItems(const std::string &name, const std::vector<Item> &items) { return Put(name, InstrumentFile(items)); }
    // Opens the file and ties it to the bank of that slot, then opens the bank.
    frmPcgUN &OpenBank(int slot, const std::string &path)
    {
        Open(path);
        Press(Window(1).CommUser[slot]);
        run.Choose(app.frame.mnuPcgUser[slot]);
        return Window(slot);
    }
};

// --- rows

TEST_F(ProgramWindowTest, OccupiedPlacesShowTheirNameAndEmptyOnesTheirNumber)
{
    Open(PutItems("a.pcg", {{"Grand Piano     ", 0, {1}}, {"Organ 16' 8' 4'2", 2, {2}}, {"Vox", 63, {3}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(RowOf(1, 0), " 001 Grand Piano") << "trailing blanks removed";
    EXPECT_EQ(RowOf(1, 1), " 002 ");
    EXPECT_EQ(RowOf(1, 2), " 003 Organ 16' 8' 4'2");
    EXPECT_EQ(RowOf(1, 63), std::string(" 064 Vox         \0\0\0\0", 21)) << "zeros become blanks but for the last four";
}

TEST_F(ProgramWindowTest, ZerosBeforeTrailingBlanksStayBehindAnyOtherCharacter)
{
    const std::string mixed("Piano\0\0\0        ", 16);
    Open(PutItems("a.pcg", {{mixed, 0, {}}, {std::string("\0\0", 2), 1, {}}, {std::string("AB\0CDEFGHIJKLMNO", 16), 2, {}}}));
    EXPECT_EQ(RowOf(1, 0), std::string(" 001 Piano\0\0\0", 13)) << "the fourth from the end is a letter";
    EXPECT_EQ(RowOf(1, 1), std::string(" 002             \0\0\0\0", 21)) << "a name of zeros";
    EXPECT_EQ(RowOf(1, 2), std::string(" 003 AB\0CDEFGHIJKLMNO", 21));
}

TEST_F(ProgramWindowTest, NamesKeepTheirBytes)
{
    Open(PutItems("a.pcg", {{"\xC8 gi\xE0 pi\xF9!!!!!!!", 0, {}}}));
    EXPECT_EQ(RowOf(1, 0), " 001 \xC8 gi\xE0 pi\xF9!!!!!!!");
    EXPECT_EQ(Window(1).List1.encoding, ListBox::Encoding::Windows1252);
}

TEST_F(ProgramWindowTest, OneEntryInSlot64MakesABankOf128Places)
{
    Open(PutItems("a.pcg", {{"Alone           ", 64, {}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 128);
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Places), 128);
    EXPECT_EQ(RowOf(1, 63), " 064 ");
    EXPECT_EQ(RowOf(1, 64), " 065 Alone");
    EXPECT_EQ(RowOf(1, 127), " 128 ");
}

TEST_F(ProgramWindowTest, AllSlotsUnder64Show64RowsInFourColumns)
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

TEST_F(ProgramWindowTest, AFileWithoutItemsShows64RowsOf16Blanks)
{
    const std::string path = Put("empty.pcg", InstrumentFile({}));
    ASSERT_EQ(ReadBytes(path).size(), 60U);
    Open(path);
    EXPECT_EQ(Window(1).List1.ListCount(), 64);
    EXPECT_EQ(RowOf(1, 0), " 001 " + kBlanks16);
    EXPECT_EQ(RowOf(1, 63), " 064 " + kBlanks16);
    EXPECT_EQ(Window(1).Tag.image.size(), 60U);
}

TEST_F(ProgramWindowTest, AnEntryOutOfOrderHidesAllLaterOnes)
{
    Open(PutItems("a.pcg", {{"First           ", 5, {}}, {"Back            ", 4, {}}, {"Later           ", 6, {}}}));
    EXPECT_EQ(RowOf(1, 5), " 006 First");
    EXPECT_EQ(RowOf(1, 4), " 005 ");
    EXPECT_EQ(RowOf(1, 6), " 007 ");
}

TEST_F(ProgramWindowTest, ASlotByteOf128OrMoreGetsNoRow)
{
    Open(PutItems("a.pcg", {{"First           ", 5, {}}, {"Nowhere         ", 200, {}}}));
    EXPECT_EQ(Window(1).List1.ListCount(), 128);
    EXPECT_EQ(RowOf(1, 5), " 006 First");
    for (int row = 0; row < 128; ++row) {
        EXPECT_EQ(RowOf(1, row).find("Nowhere"), std::string::npos);
    }
}

TEST_F(ProgramWindowTest, ADirectoryThatRunsBeyondTheEndShowsWhatThereIs)
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

TEST_F(ProgramWindowTest, DamagedFilesShowTheirRowsWithoutHarm)
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

// --- the state text

TEST_F(ProgramWindowTest, TheTagOfAFileHoldsItsFieldsAndTheWholeFile)
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

TEST_F(ProgramWindowTest, ANewFileOf128PlacesHasRowsAndNoImage)
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

TEST_F(ProgramWindowTest, NewFilesTakeTheirEntriesUntilTheyClose)
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

class ProgramWindowEnglishTest : public EnglishFilesTest {};

TEST_F(ProgramWindowEnglishTest, NamesTheNewFileAndTheButtonInEnglish)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    EXPECT_EQ(Window(11).Tag.Path(), "Untitled.pcg");
    EXPECT_EQ(Window(11).caption.Get(), "Nuovo File: Untitled.pcg");
    EXPECT_EQ(Window(11).CommClose.caption.Get(), "&Close");
}

// --- place and size

TEST_F(ProgramWindowTest, AFileNeverSeenBeforeGetsItsNaturalPlace)
{
    Record(1).MinWidth = 500;
    Record(1).Left = 700;
    Open(Put("a.pcg", FileOfLength(200)));
    const Size letter = run.face.MeasureA(Window(1).List1.font);
    const Size frame = run.face.ChildFrame();
    const Place place = Window(1).place;
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
    EXPECT_EQ(place.width, 88 * letter.width + frame.width);
    EXPECT_EQ(place.height - frame.height - Window(1).List1.place.Get().height, 405) << "the row of buttons";
    EXPECT_EQ(Window(1).List1.place.Get(), (Place{0, 0, 88 * letter.width, 17 * letter.height}));
    EXPECT_LT(place.height, 5082) << "or the place would be thrown away each time";
    EXPECT_EQ(Record(1).MinWidth, place.width);
    EXPECT_EQ(Record(1).MinHeight, place.height);
    EXPECT_EQ(Record(1).Width, place.width);
    EXPECT_EQ(Record(1).Height, place.height);
    EXPECT_EQ(Record(1).State, 1);
}

TEST_F(ProgramWindowTest, ALargeBankIs33LinesHigh)
{
    run.Choose(app.frame.mnuPcgNuovo128);
    EXPECT_EQ(Window(12).List1.place.Get().height, 33 * run.face.MeasureA(Window(12).List1.font).height);
}

// A face with the tallest usual row and window frame.
struct TallFace : StandinFace {
    Size MeasureA(const Font & /*font*/) override { return {135, 255}; }
    Size ChildFrame() override { return {120, 450}; }
};

TEST_F(ProgramWindowTest, ASmallBankStaysBelowTheHeightOfALargeOneWithATallFontToo)
{
    TallFace tall;
    FilesFrom machine(run.folder->Path());
    Velluto other(Ports{machine, run.midi, run.clock}, tall);
    tall.onModal = [](Form &form) { Press(*form.Find("CommOK")); };
    ASSERT_TRUE(StartUp(other));
    ASSERT_TRUE(ChooseMenu(other.app.frame.mnuPcgNuovo64));
    const frmPcgUN &window = *other.files.PcgWindows[11];
    EXPECT_LT(window.Height(), 5082);
    EXPECT_EQ(window.List1.place.Get().height, 17 * 255);
    EXPECT_GE(window.CommClose.place.Get().height, 225);
    EXPECT_LE(window.CommClose.place.Get().top + window.CommClose.place.Get().height, window.ScaleHeight());
}

TEST_F(ProgramWindowTest, TheRectangleComesBackOnlyForAFileThatItsSlotKnew)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    const Place natural = Window(1).place;
    app.children.Move(Window(1), 1500, 700);
    app.children.Resize(Window(1), natural.width + 300, 5000);
    run.Close(Window(1));
    EXPECT_EQ(Record(1).Left, 1500);
    EXPECT_EQ(Record(1).Top, 700);
    EXPECT_EQ(Record(1).Width, natural.width + 300);
    EXPECT_EQ(Record(1).Height, 5000);
    EXPECT_EQ(Record(1).State, 0);

    Open(path);
    EXPECT_EQ(Window(1).place.Get(), (Place{1500, 700, natural.width + 300, 5000}));
    run.Close(Window(1));

    Open(Put("b.pcg", FileOfLength(200)));
    EXPECT_EQ(Window(1).place.Get(), natural);
}

TEST_F(ProgramWindowTest, ARecordAsHighAsALargeBankLosesItsPlace)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    const Place natural = Window(1).place;
    app.children.Move(Window(1), 1500, 700);
    app.children.Resize(Window(1), natural.width, 5081);
    run.Close(Window(1));
    Open(path);
    EXPECT_EQ(Window(1).place.Get(), (Place{1500, 700, natural.width, 5081}));
    app.children.Resize(Window(1), natural.width, 5082);
    run.Close(Window(1));
    Open(path);
    EXPECT_EQ(Window(1).place.Get(), natural);
}

TEST_F(ProgramWindowTest, ABankKeepsItsPlaceOnlyAfterAnOpenThatKnewItsFile)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    frmPcgUN &bank = OpenBank(9, path);
    const Place natural = bank.place;
    app.children.Move(bank, 900, 600);
    run.Close(bank);
    run.Choose(app.frame.mnuPcgUser[9]);
    EXPECT_EQ(Window(9).place.Get(), natural) << "the last Open found no known file";
    app.children.Move(Window(9), 900, 600);
    run.Close(Window(9));
    run.Close(Window(1));
    Open(path);
    run.Choose(app.frame.mnuPcgUser[9]);
    EXPECT_EQ(Window(9).place.Get(), (Place{900, 600, natural.width, natural.height}));
}

TEST_F(ProgramWindowTest, TheWindowIsNeverSmallerThanItsNaturalSize)
{
    Open(Put("a.pcg", FileOfLength(200)));
    const Place natural = Window(1).place;
    app.children.Resize(Window(1), 100, 100);
    EXPECT_EQ(Window(1).place.Get(), natural);
    app.children.Resize(Window(1), natural.width + 600, 100);
    EXPECT_EQ(Window(1).Width(), natural.width + 600);
    EXPECT_EQ(Window(1).Height(), natural.height);
    EXPECT_EQ(Record(1).Width, natural.width + 600);
    EXPECT_EQ(Window(1).List1.place.Get().width, Window(1).ScaleWidth());
}

TEST_F(ProgramWindowTest, MinimisedIsState2AndMaximisedLeavesItAlone)
{
    Open(Put("a.pcg", FileOfLength(200)));
    const Place natural = Window(1).place;
    app.children.Minimise(Window(1));
    EXPECT_EQ(Record(1).State, 2);
    app.children.Maximise(Window(1));
    EXPECT_EQ(Record(1).State, 2);
    app.children.Restore(Window(1));
    EXPECT_EQ(Record(1).State, 1);
    app.children.Maximise(Window(1));
    EXPECT_EQ(Record(1).State, 1);
    EXPECT_EQ(Record(1).Width, natural.width) << "its normal rectangle stays in place";
    run.Close(Window(1));
    EXPECT_EQ(Record(1).Height, natural.height);
    EXPECT_EQ(Record(1).State, 0);
}

TEST_F(ProgramWindowTest, GeometryIsLimitedToTheFieldsOfTheRecord)
{
    Open(Put("a.pcg", FileOfLength(200)));
    app.children.Move(Window(1), -40000, 50000);
    app.children.Resize(Window(1), 70000, 80000);
    run.Close(Window(1));
    EXPECT_EQ(Record(1).Left, -32768);
    EXPECT_EQ(Record(1).Top, 32767);
    EXPECT_EQ(Record(1).Width, 32767);
    EXPECT_EQ(Record(1).Height, 32767);
}

TEST_F(ProgramWindowTest, NonsenseGeometryInTheSettingsIsNoHarm)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    run.Close(Window(1));
    std::mt19937 random(7);
    const auto any = [&random] { return static_cast<std::int16_t>(random()); };
    for (int round = 0; round < 100; ++round) {
        DocRecord &record = Record(1);
        record.Left = any();
        record.Top = any();
        record.Width = any();
        record.Height = any();
        record.MinWidth = any();
        record.MinHeight = any();
        Open(path);
        EXPECT_GE(Window(1).ScaleWidth(), 0);
        EXPECT_GE(Window(1).ScaleHeight(), 0);
        EXPECT_GE(Window(1).List1.place.Get().height, 0);
        run.Close(Window(1));
    }
}

// --- controls

TEST_F(ProgramWindowTest, FileWindowsOfferTheBanksAndOtherWindowsDoNot)
{
    Open(Put("a.pcg", FileOfLength(200)));
    frmPcgUN &file = Window(1);
    EXPECT_TRUE(file.CommUser[9].visible);
    EXPECT_TRUE(file.CommUser[10].visible);
    EXPECT_EQ(file.CommUser[9].caption.Get(), "&User 1");
    EXPECT_EQ(file.CommUser[10].caption.Get(), "&User 2");
    EXPECT_EQ(file.CommClose.caption.Get(), "&Chiudi");
    const auto right = [](const Button &button) { return button.place.Get().left + button.place.Get().width; };
    EXPECT_LT(right(file.CommUser[9]), file.CommUser[10].place.Get().left);
    EXPECT_LT(right(file.CommUser[10]), file.CommClose.place.Get().left);
    EXPECT_EQ(file.CommClose.place.Get().top, file.CommUser[9].place.Get().top);
    EXPECT_GE(file.CommClose.place.Get().top, file.List1.place.Get().height);

    run.Choose(app.frame.mnuPcgNuovo64);
    frmPcgUN &fresh = Window(11);
    EXPECT_FALSE(fresh.CommUser[9].visible);
    EXPECT_FALSE(fresh.CommUser[10].visible);
    const Place close = fresh.CommClose.place;
    EXPECT_EQ(close.left, (fresh.ScaleWidth() - close.width) / 2) << "centred";
}

TEST_F(ProgramWindowTest, EveryControlHasAnAccessibleNameAndTheListComesFirst)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    std::vector<std::string> order;
    for (const Control *control : Window(11).controls()) {
        EXPECT_FALSE(control->accessibleName.empty()) << control->FullName();
        order.push_back(control->FullName());
    }
    EXPECT_THAT(order, ElementsAre("List1", "CommUser(9)", "CommUser(10)", "CommClose"));
}

TEST_F(ProgramWindowTest, CommUserTiesTheFileToTheBank)
{
    const std::string path = Put("My Sounds.pcg", FileOfLength(200));
    MenuEntry &entry = app.frame.mnuPcgUser[10];
    EXPECT_FALSE(entry.enabled);
    Open(path);
    EXPECT_TRUE(Press(Window(1).CommUser[10]));
    EXPECT_EQ(Record(10).Path.Trimmed(), path);
    EXPECT_TRUE(app.settings.PcgUserAssigned);
    EXPECT_EQ(entry.caption.Get(), "&H User 2: My Sounds.pcg");
    EXPECT_TRUE(entry.enabled);
    EXPECT_EQ(app.children.All().size(), 1U) << "the window stays a file window, the bank is only linked";

    Open(Put("Other.pcg", FileOfLength(200)));
    Press(Window(2).CommUser[10]);
    EXPECT_EQ(entry.caption.Get(), "&H User 2: Other.pcg");
}

TEST_F(ProgramWindowTest, CommUserUnloadsTheOpenBankWhichMaySaveFirst)
{
    const Bytes before = FileOfLength(200);
    const std::string path = Put("a.pcg", before);
    frmPcgUN &bank = OpenBank(9, path);
    const Bytes edited = FileOfLength(300);
    bank.Tag.image = ImageOf(edited);
    MarkModified(bank);
    Open(Put("b.pcg", FileOfLength(400)));
    run.face.answers.push_back(Box::kYes);
    Press(Window(2).CommUser[9]);
    app.children.Sweep();
    EXPECT_FALSE(HasWindow(9));
    EXPECT_EQ(ReadBytes(path), edited);
    EXPECT_EQ(Record(9).Path.Trimmed(), run.At("b.pcg"));
    EXPECT_EQ(Record(9).State, 0);
    EXPECT_TRUE(app.frame.mnuPcgUser[9].enabled);
    EXPECT_TRUE(HasWindow(2));
}

TEST_F(ProgramWindowTest, CommUserLeavesAMinimisedBankOpen)
{
    frmPcgUN &bank = OpenBank(9, Put("a.pcg", FileOfLength(200)));
    app.children.Minimise(bank);
    Press(Window(1).CommUser[9]);
    EXPECT_TRUE(HasWindow(9));
    EXPECT_EQ(Record(9).State, 2);
}

TEST_F(ProgramWindowTest, CommUserSurvivesAStateThatNoWindowStandsBehind)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Record(9).State = 1;
    Press(Window(1).CommUser[9]);
    EXPECT_EQ(Record(9).Path.Trimmed(), run.At("a.pcg"));
}

TEST_F(ProgramWindowTest, TheBankIsShownFromTheViewMenuWithoutItsButtons)
{
    frmPcgUN &bank = OpenBank(9, Put("a.pcg", FileOfLength(200)));
    EXPECT_EQ(bank.caption.Get(), "Banco User 1: a.pcg");
    EXPECT_FALSE(bank.CommUser[9].visible);
    EXPECT_FALSE(app.frame.mnuPcgUser[9].enabled) << "no second window of that slot";
    EXPECT_EQ(bank.Tag.Slot(), 9);
    run.Close(bank);
    EXPECT_TRUE(app.frame.mnuPcgUser[9].enabled);
    EXPECT_EQ(Record(9).Path.Trimmed(), run.At("a.pcg")) << "the link stays";
}

TEST_F(ProgramWindowTest, CommCloseUnloadsTheWindow)
{
    Open(Put("a.pcg", FileOfLength(200)));
    EXPECT_EQ(app.children.ChildCount, 1);
    Press(Window(1).CommClose);
    app.children.Sweep();
    EXPECT_FALSE(HasWindow(1));
    EXPECT_EQ(app.children.ChildCount, 0);
    EXPECT_FALSE(app.frame.mnuModifica.enabled);
}

TEST_F(ProgramWindowTest, TheDeleteKeyCutsEvenWhereTheMenuDoesNotOfferIt)
{
    Open(Put("a.pcg", FileOfLength(200)));
    int cuts = 0;
    app.frame.mnuTaglia.Click = [&cuts] { ++cuts; };
    app.frame.mnuTaglia.enabled = false;
    PressKey(Window(1).List1, Key::Delete);
    EXPECT_EQ(cuts, 1);
    PressKey(Window(1).List1, Key::Insert);
    EXPECT_EQ(cuts, 1);
}

TEST_F(ProgramWindowTest, TheRightButtonPopsUpTheEditMenuWithItsStateComputed)
{
    Open(Put("a.pcg", FileOfLength(200)));
    int computed = 0;
    app.frame.mnuModifica.Drop = [&computed] { ++computed; };
    Window(1).List1.MouseDown(MouseButton::Right);
    Window(1).Form_MouseDown(MouseButton::Right);
    EXPECT_EQ(run.face.popUps, (std::vector<MenuEntry *>{&app.frame.mnuModifica, &app.frame.mnuModifica}));
    EXPECT_EQ(computed, 2);
    Window(1).List1.MouseDown(MouseButton::Left);
    EXPECT_EQ(computed, 2);
}

TEST_F(ProgramWindowTest, ARowOfABankIsSelectedOnTheInstrumentEmptyOrNot)
{
    std::vector<std::pair<int, int>> selected;
    files.services.SelectOnInstrument = [&](Form &window, int row) { selected.emplace_back(window.number(), row); };
    frmPcgUN &bank = OpenBank(9, PutItems("a.pcg", {{"Grand Piano", 0, {}}}));
    ListGesture::ClickRow(bank.List1, 0, Modifier::None);
    ListGesture::ClickRow(bank.List1, 5, Modifier::None);
    ListGesture::ClickRow(Window(1).List1, 0, Modifier::None);
    EXPECT_EQ(selected, (std::vector<std::pair<int, int>>{{9, 0}, {9, 5}})) << "an opened file never selects";
    bank.List1.SetRow(5, "006  ");
    ListGesture::ClickRow(bank.List1, 5, Modifier::None);
    EXPECT_EQ(selected.size(), 2U) << "a row of three characters is ignored";
}

TEST_F(ProgramWindowTest, AClickRefreshesTheMenuEitherWay)
{
    Open(Put("a.pcg", FileOfLength(200)));
    app.frame.mnuWindow.enabled = false;
    ListGesture::ClickRow(Window(1).List1, 0, Modifier::None);
    EXPECT_TRUE(app.frame.mnuWindow.enabled);
}

// --- closing

TEST_F(ProgramWindowTest, AWindowWithoutChangesAsksNothingEvenForANewFile)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    EXPECT_TRUE(run.Close(Window(11)));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProgramWindowTest, TheQuestionIsTitledWithTheFileAndTheSlotOfTheLastTitle)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Open(Put("b.pcg", FileOfLength(200)));
    MarkModified(Window(1));
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(run.Close(Window(1)));
    EXPECT_THAT(Boxes(), ElementsAre("File Program - a.pcg (2): Il file è stato modificato\r\nSalvare le modifiche ?"));
    EXPECT_EQ(app.ViewKind, ViewKind::ProgramFile);
}

TEST_F(ProgramWindowTest, CancelKeepsTheWindowAndEndsAnExit)
{
    Open(Put("a.pcg", FileOfLength(200)));
    MarkModified(Window(1));
    run.face.answers.push_back(Box::kCancel);
    EXPECT_FALSE(run.Exit());
    EXPECT_TRUE(HasWindow(1));
    EXPECT_FALSE(app.children.ClosingAll);
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 1);
    EXPECT_EQ(app.children.ChildCount, 1);
}

TEST_F(ProgramWindowTest, NoClearsPosition7AndCloses)
{
    Open(Put("a.pcg", FileOfLength(200)));
    frmPcgUN &window = Window(1);
    MarkModified(window);
    window.Tag.Set(TagPosition::ProgramEdited, 1);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(window.Form_QueryUnload());
    EXPECT_EQ(window.Tag.At(TagPosition::ProgramEdited), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(ProgramWindowTest, YesWithAFailingSaveLeavesTheWindowOpen)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    MarkModified(Window(1));
    Fail(FileFault::Operation::Write, path, 57);
    run.face.answers.push_back(Box::kYes);
    app.children.ClosingAll = true;
    EXPECT_FALSE(run.Close(Window(1)));
    EXPECT_FALSE(app.children.ClosingAll);
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 1);
    run.face.answers.push_back(Box::kYes);
    EXPECT_TRUE(run.Close(Window(1)));
    EXPECT_EQ(ReadBytes(path), FileOfLength(200));
}

TEST_F(ProgramWindowTest, YesForANewFileAsksForItsName)
{
    run.Choose(app.frame.mnuPcgNuovo64);
    MarkModified(Window(11));
    Window(11).Tag.image = ImageOf(FileOfLength(200));
    run.face.answers.push_back(Box::kYes);
    EXPECT_FALSE(run.Close(Window(11))) << "the dialog is cancelled";
    run.face.answers.push_back(Box::kYes);
    run.face.choices.push_back({false, run.At("new.pcg"), 1});
    EXPECT_TRUE(run.Close(Window(11)));
    EXPECT_EQ(ReadBytes(run.At("new.pcg")), FileOfLength(200));
}

TEST_F(ProgramWindowTest, ClosingTheSourceOfACopyEmptiesTheClipboard)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Open(Put("b.pcg", FileOfLength(200)));
    files.clipboard.ClipValid = 1;
    files.clipboard.ClipSlot = 2;
    files.clipboard.ClipKind = ViewKind::StyleFile; // whatever the kind
    run.Close(Window(1));
    EXPECT_EQ(files.clipboard.ClipValid, 1);
    run.Close(Window(2));
    EXPECT_EQ(files.clipboard.ClipValid, 0);
}

TEST_F(ProgramWindowTest, ClosingNotesThePlaceInTheRecentList)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Open(path);
    Open(Put("b.pcg", FileOfLength(200)));
    app.children.Move(Window(1), 321, 654);
    run.Close(Window(1));
    const RecentRecord &entry = app.settings.RecentTable[2];
    EXPECT_EQ(entry.Path.Trimmed(), path);
    EXPECT_EQ(entry.Left, 321);
    EXPECT_EQ(entry.Top, 654);
    EXPECT_EQ(entry.Width, Record(1).Width);
    EXPECT_EQ(entry.Height, Record(1).Height);
}

TEST_F(ProgramWindowTest, AnExitStoresStateZeroOfEveryWindow)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    OpenBank(9, path);
    app.children.Minimise(Window(1));
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(Record(1).State, 0);
    EXPECT_EQ(Record(9).State, 0);
    EXPECT_EQ(app.children.ChildCount, 0);
}

} // namespace
} // namespace velluto::test
