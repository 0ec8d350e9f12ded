// What Program, Style and Performance windows do alike, run on each of the three: open, bank, minimise, open again, select
// on the instrument.
#include "unit/files/DocumentKinds.h"

namespace velluto::test {
namespace {

class DocumentWindowTest : public EachDocumentTest {};

TEST_P(DocumentWindowTest, AnOpenedFileShowsItsRowsAndKeepsItsBytes)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    Form &window = Window(1);
    EXPECT_EQ(window.FullName(), kind.form + "(1)");
    EXPECT_EQ(List(window).Row(0).substr(0, kind.row0.size()), kind.row0);
    EXPECT_EQ(window.Tag.Kind(), kind.viewKind);
    EXPECT_EQ(window.Tag.Path(), path);
    EXPECT_EQ(BytesOf(window.Tag.image), kind.file);
    EXPECT_EQ(Record(1).Path.Trimmed(), path);
    EXPECT_EQ(Record(1).State, 1);
    EXPECT_TRUE(OpenFlags()[1]);
    EXPECT_EQ(app.children.Active(), &window);
    EXPECT_EQ(app.children.ChildCount, 1);
    EXPECT_EQ(app.settings.RecentTable[1].Path.Trimmed(), path);
    EXPECT_EQ(type.current, 2);
    OpenFile(path);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a" + kind.extension + ": File già aperto"));
}

TEST_P(DocumentWindowTest, EightOpenWindowsDisableTheCommandAndAClosedOneEnablesIt)
{
    for (int i = 1; i <= 8; ++i) {
        OpenFile(PutFile("file" + std::to_string(i)));
    }
    EXPECT_TRUE(Has(8));
    EXPECT_FALSE(type.openCommand.enabled);
    EXPECT_EQ(type.current, 9);
    run.Close(Window(3));
    EXPECT_TRUE(type.openCommand.enabled);
    EXPECT_EQ(OpenFlags()[3], !kind.freesSlot);
    OpenFile(PutFile("ninth"));
    EXPECT_EQ(Has(3), kind.freesSlot);
}

TEST_P(DocumentWindowTest, ABankIsTiedByItsButtonAndOpensFromTheViewMenu)
{
    const std::string path = PutFile("a");
    Form &bank = OpenBankOf(path);
    EXPECT_EQ(bank.caption.Get().substr(0, 18), "Banco User 1: a" + kind.extension.substr(0, 3));
    EXPECT_EQ(bank.Tag.Path(), path);
    EXPECT_EQ(bank.Tag.Slot(), kind.firstBank);
    EXPECT_EQ(List(bank).Rows(), List(Window(1)).Rows());
    EXPECT_FALSE(BankEntry().enabled);
    EXPECT_FALSE(BankButton(bank).visible);
    EXPECT_TRUE(ControlNamed(bank, "CommClose")->visible);
    run.Close(bank);
    EXPECT_TRUE(BankEntry().enabled);
    EXPECT_EQ(Record(kind.firstBank).Path.Trimmed(), path) << "the link stays";
    EXPECT_EQ(Record(kind.firstBank).State, 0);
}

TEST_P(DocumentWindowTest, ToolTipsFollowWhatABankIsTiedTo)
{
    OpenFile(PutFile("a"));
    OpenFile(PutFile("b"));
    EXPECT_EQ(BankButton(Window(1)).toolTip.Get(), "User 1");
    Press(BankButton(Window(2)));
    EXPECT_EQ(BankButton(Window(1)).toolTip.Get(), "User 1: " + run.At("b" + kind.extension));
}

TEST_P(DocumentWindowTest, AClickInABankSelectsOnTheInstrumentAndOneInAFileDoesNot)
{
    Form &bank = OpenBankOf(PutFile("a"));
    const std::uint32_t channel = &type == &files.programs ? 1 : 0;
    ListGesture::ClickRow(List(Window(1)), 5, Modifier::None);
    EXPECT_EQ(run.midi.sent, std::vector<std::uint32_t>{});
    ListGesture::ClickRow(List(bank), 5, Modifier::None);
    EXPECT_EQ(run.midi.sent, (std::vector<std::uint32_t>{kind.msb << 16 | 0xB0 | channel, kind.lsb << 16 | 0x2000 | 0xB0 | channel,
                                                         5U << 8 | 0xC0 | channel}));
    run.midi.sent.clear();
    Record(kind.firstBank).Role = 0;
    ListGesture::ClickRow(List(bank), 0, Modifier::None);
    EXPECT_EQ(run.midi.sent, std::vector<std::uint32_t>{}) << "OFF";
    EXPECT_TRUE(List(bank).Selected(0));
}

TEST_P(DocumentWindowTest, ARoleSetInABankIsItsOwnAndAFileTakesNone)
{
    Form &bank = OpenBankOf(PutFile("a"));
    app.children.Activate(bank);
    EXPECT_TRUE(run.Choose(app.frame.mnuMIDIStp[14]));
    EXPECT_EQ(Record(kind.firstBank).Role, 14);
    EXPECT_TRUE(run.Choose(app.frame.mnuMIDIStp[2]));
    EXPECT_EQ(Record(kind.firstBank).Role, 2);
    app.children.Activate(Window(1));
    const int before = Record(1).Role;
    EXPECT_FALSE(run.Choose(app.frame.mnuMIDIStp[14]));
    mnuMIDIStp_Click(files, 14);
    EXPECT_EQ(Record(1).Role, before);
}

TEST_P(DocumentWindowTest, AMinimisedFileIsReadAgainAndItsWindowBroughtUpAsItIs)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    Form &window = Window(1);
    app.children.Minimise(window);
    EXPECT_EQ(Record(1).State, 2);
    WriteBytes(path, InstrumentFile({}));
    OpenFile(path);
    EXPECT_EQ(window.windowState.Get(), WindowState::Normal);
    EXPECT_EQ(Record(1).State, 1);
    EXPECT_EQ(BytesOf(files.LoadImage), InstrumentFile({}));
    EXPECT_EQ(BytesOf(window.Tag.image), kind.file) << "no new load";
    EXPECT_EQ(app.children.ChildCount, 1);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_P(DocumentWindowTest, AFileComesBackToItsSlotAndItsPlace)
{
    OpenFile(PutFile("a"));
    OpenFile(PutFile("b"));
    app.children.Move(Window(2), 450, 600);
    const int width = Window(2).Width() + 900;
    const int height = Window(2).Height() + 15;
    app.children.Resize(Window(2), width, height);
    run.Close(Window(2));
    run.Close(Window(1));
    EXPECT_EQ(Record(2).Left, 450);
    EXPECT_EQ(app.settings.RecentTable[1].Left, 450) << "the recent entry notes it too";
    OpenFile(run.At("b" + kind.extension));
    EXPECT_EQ(Window(2).place.Get(), (Place{450, 600, width, height}));
}

TEST_P(DocumentWindowTest, AWindowIsNeverSmallerThanItsNaturalSize)
{
    OpenFile(PutFile("a"));
    Form &window = Window(1);
    const Size natural{window.Width(), window.Height()};
    app.children.Resize(window, 10, 10);
    EXPECT_EQ(window.Width(), natural.width);
    EXPECT_EQ(window.Height(), natural.height);
    EXPECT_EQ(Record(1).Width, natural.width);
    app.children.Resize(window, natural.width + 1500, natural.height + 750);
    EXPECT_EQ(List(window).place.Get().width, window.ScaleWidth());
    EXPECT_EQ(Record(1).Height, natural.height + 750);
    EXPECT_TRUE(run.Choose(app.frame.mnuIngrandisci));
    EXPECT_EQ(window.Width(), natural.width);
    app.children.Maximise(window);
    EXPECT_EQ(Record(1).State, 1) << "a maximised window leaves it as it was";
    EXPECT_EQ(List(window).place.Get().width, run.face.Workspace().width);
}

TEST_P(DocumentWindowTest, TheDeleteKeyCutsAndTheRightButtonPopsUpTheEditMenu)
{
    OpenFile(PutFile("a"));
    int cuts = 0;
    app.frame.mnuTaglia.Click = [&cuts] { ++cuts; };
    PressKey(List(Window(1)), Key::Delete);
    PressKey(List(Window(1)), Key::Insert);
    EXPECT_EQ(cuts, 1);
    List(Window(1)).MouseDown(MouseButton::Right);
    Window(1).Form_MouseDown(MouseButton::Right);
    Window(1).Form_MouseDown(MouseButton::Left);
    EXPECT_EQ(run.face.popUps.size(), 2U);
    EXPECT_EQ(run.midi.sent, std::vector<std::uint32_t>{});
}

TEST_P(DocumentWindowTest, AnExitStoresStateZeroOfEveryWindow)
{
    OpenBankOf(PutFile("a"));
    app.children.Minimise(Window(1));
    run.Choose(NewEntry());
    EXPECT_TRUE(run.Exit());
    for (const int slot : {1, kind.firstBank, kind.newSlot}) {
        EXPECT_EQ(Record(slot).State, 0) << slot;
    }
    EXPECT_EQ(app.children.ChildCount, 0);
}

TEST_P(DocumentWindowTest, AnyBytesWithTheMarksOfAFileAreShownWithoutHarm)
{
    // A good head and a fitting last byte; directory and index are anything at all.
    std::mt19937 random(20050517); // NOLINT(cert-msc51-cpp): the same files each time
    for (int i = 0; i < 200; ++i) {
        Bytes bytes = kind.file;
        bytes.resize(36 + random() % 900);
        for (std::size_t at = 28; at < bytes.size(); ++at) {
            bytes[at] = static_cast<std::uint8_t>(random() % 4 == 0 ? random() : random() % 20);
        }
        bytes[5] = static_cast<std::uint8_t>(random() % 2);
        bytes[6] = static_cast<std::uint8_t>(random());
        bytes[34] = static_cast<std::uint8_t>(random() % 24);
        bytes.back() = static_cast<std::uint8_t>((bytes[34] * 256 + bytes[35]) / 24 + 1);
        const std::string path = Put("damaged" + kind.extension, bytes);
        OpenFile(path);
        Form *window = Find(1);
        if (window == nullptr) {
            EXPECT_EQ(Boxes().size(), 1U) << "refused as no instrument file";
            continue;
        }
        EXPECT_EQ(List(*window).ListCount() % 8, 0);
        if (Control *sts = ControlNamed(*window, "CommSTS")) {
            Press(*sts);
            Press(*sts);
            EXPECT_EQ(List(*window).ListCount(), 16);
        }
        EXPECT_EQ(BytesOf(window->Tag.image), bytes);
        run.Close(*window);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DocumentWindowTest, ::testing::ValuesIn(DocumentKinds()), NameOfKind);

} // namespace
} // namespace velluto::test
