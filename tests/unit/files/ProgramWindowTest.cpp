// The controls of a Program window, and how it closes.
#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

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

TEST_F(ProgramWindowTest, AClosedWindowLeavesItsKindAndSlotInTheGlobals)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Open(Put("b.pcg", FileOfLength(200)));
    app.ViewKind = 0;
    run.Close(Window(1));
    EXPECT_EQ(app.ViewKind, 14);
    EXPECT_EQ(files.programs.current, 1);
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
