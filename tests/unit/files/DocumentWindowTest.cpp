// What Program, Style and Performance windows do alike, run on each of the three: open, bank, close with changes, save,
// minimise, open again, select on the instrument.
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

// What the suite needs to know of a type, and what is not alike.
struct Kind {
    std::string name;
    const DocumentType *type;
    std::string extension;
    std::string form;
    int viewKind;
    int firstBank; // the slot of User 1
    int newSlot;
    int buttonOffset; // from a bank's slot to the number of its button and of its menu entry
    Bytes file;
    std::string row0; // of the file's first item, as the window begins it
    std::uint32_t msb;
    std::uint32_t lsb; // of User 1
    std::string question;
    bool freesSlot;
    int clearedByNo;
};

std::vector<Kind> Kinds()
{
    return {
        {"Program", &ProgramType(), ".pcg", "frmPcgUN", 14, 9, 11, 0, FileWithItems({{"Grand Piano", 0}, {"Organ", 5}}), " 001 Grand Piano",
         121, 64, "File Program - a.pcg (1)", true, TagPosition::ProgramEdited},
        {"Style", &StyleType(), ".sty", "frmStyUN", 20, 9, 0, 0, FileWithItems({{"Bossa", 0}, {"STS", 0}, {"Beat", 5}, {"STS", 5}}),
         " 01 Bossa                1  ", 0, 17, "File Style: ", false, TagPosition::ProgramEdited},
        {"Performance", &PerformanceType(), ".prf", "frmPrfUN", 22, 9, 0, 8, FileWithItems({{"Ballad", 0}, {"Waltz", 5}}), " 1 Ballad", 1,
         0, "File a.prf (1)", true, TagPosition::Modified},
    };
}

class DocumentWindowTest : public BankFilesTest, public ::testing::WithParamInterface<Kind> {
protected:
    const Kind &kind = GetParam();

    void SetUp() override
    {
        BankFilesTest::SetUp();
        app.settings.ChannelRole = {14, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        run.Choose(app.frame.mnuDevMIDIOut[0]);
        run.midi.sent.clear();
    }
    std::string PutFile(const std::string &name) { return Put(name + kind.extension, kind.file); }
    void OpenFile(const std::string &path)
    {
        run.face.choices.push_back({false, path, kind.type->filterIndex});
        run.Choose(app.frame.*(kind.type->openCommand));
    }
    bool Has(int slot) { return Find(slot) != nullptr; }
    Form *Find(int slot)
    {
        for (Form *form : app.children.All()) {
            if (form->name() == kind.form && form->number() == slot) {
                return form;
            }
        }
        return nullptr;
    }
    Form &Window(int slot)
    {
        if (Form *form = Find(slot)) {
            return *form;
        }
        throw std::runtime_error("no window in slot " + std::to_string(slot));
    }
    static ListBox &List(Form &form) { return dynamic_cast<ListBox &>(*form.Find("List1")); }
    DocRecord &Record(int slot) { return kind.type->table(app.settings)[static_cast<std::size_t>(slot)]; }
    MenuEntry &BankEntry()
    {
        if (kind.type == &ProgramType()) {
            return app.frame.mnuPcgUser[9];
        }
        return kind.type == &StyleType() ? app.frame.mnuStyUser[9] : app.frame.mnuPrfUser[1];
    }
    MenuEntry &NewEntry()
    {
        if (kind.type == &ProgramType()) {
            return app.frame.mnuPcgNuovo64;
        }
        return kind.type == &StyleType() ? app.frame.mnuStyNuovo : app.frame.mnuPrfNuovo;
    }
    Control &BankButton(Form &form) { return *form.Find("CommUser", kind.firstBank - kind.buttonOffset); }
    std::array<bool, 9> &OpenFlags() { return files.*(kind.type->openFlags); }
    // Opens the file, ties it to User 1 and opens that bank.
    Form &OpenBankOf(const std::string &path)
    {
        OpenFile(path);
        Press(BankButton(Window(1)));
        run.Choose(BankEntry());
        return Window(kind.firstBank);
    }
};

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
    EXPECT_EQ(files.*(kind.type->current), 2);
    OpenFile(path);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a" + kind.extension + ": File già aperto"));
}

TEST_P(DocumentWindowTest, EightOpenWindowsDisableTheCommandAndAClosedOneEnablesIt)
{
    for (int i = 1; i <= 8; ++i) {
        OpenFile(PutFile("file" + std::to_string(i)));
    }
    EXPECT_TRUE(Has(8));
    EXPECT_FALSE((app.frame.*(kind.type->openCommand)).enabled);
    EXPECT_EQ(files.*(kind.type->current), 9);
    run.Close(Window(3));
    EXPECT_TRUE((app.frame.*(kind.type->openCommand)).enabled);
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
    EXPECT_TRUE(bank.Find("CommClose")->visible);
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
    const std::uint32_t channel = kind.type == &ProgramType() ? 1 : 0;
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

TEST_P(DocumentWindowTest, CancelKeepsAChangedWindowAndEndsAnExit)
{
    OpenFile(PutFile("a"));
    MarkModified(Window(1));
    run.face.answers.push_back(Box::kCancel);
    EXPECT_FALSE(run.Exit());
    EXPECT_TRUE(Has(1));
    EXPECT_FALSE(app.children.ClosingAll);
    EXPECT_EQ(run.face.boxes.back().title.substr(0, kind.question.size()), kind.question);
    EXPECT_EQ(run.face.boxes.back().text, "Il file è stato modificato\r\nSalvare le modifiche ?");
}

TEST_P(DocumentWindowTest, NoLetsTheChangesGo)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    Form &window = Window(1);
    window.Tag.image = ImageOf(InstrumentFile({}));
    MarkModified(window);
    window.Tag.Set(TagPosition::ProgramEdited, 1);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(window.Form_QueryUnload());
    EXPECT_EQ(window.Tag.At(kind.clearedByNo), 0);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(run.Close(window));
    EXPECT_EQ(ReadBytes(path), kind.file);
}

TEST_P(DocumentWindowTest, YesSavesAndAFailingSaveKeepsTheWindow)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    const Bytes edited = InstrumentFile({Sized("New", 1, 77)});
    Window(1).Tag.image = ImageOf(edited);
    MarkModified(Window(1));
    Fail(FileFault::Operation::Write, path, 57);
    run.face.answers.push_back(Box::kYes);
    EXPECT_FALSE(run.Close(Window(1)));
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 1);
    run.face.answers.push_back(Box::kYes);
    EXPECT_TRUE(run.Close(Window(1)));
    EXPECT_EQ(ReadBytes(path), edited);
}

TEST_P(DocumentWindowTest, SaveWritesTheImageAsItStands)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(path), kind.file) << "opening and saving changes no byte";
    Window(1).Tag.image = ImageOf(InstrumentFile({}));
    MarkModified(Window(1));
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(path), InstrumentFile({}));
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 0);
}

TEST_P(DocumentWindowTest, SaveAsTakesTheNewNameAndOnlyProgramRecordsFollow)
{
    const std::string path = PutFile("a");
    const std::string other = run.At("b" + kind.extension);
    OpenFile(path);
    SaveAs(other);
    EXPECT_EQ(run.face.dialogs.back().filterIndex, kind.type->filterIndex);
    EXPECT_EQ(run.face.dialogs.back().extension, kind.extension.substr(1));
    EXPECT_EQ(run.face.dialogs.back().proposed, "SenzaNome" + kind.extension);
    EXPECT_EQ(ReadBytes(other), kind.file);
    EXPECT_TRUE(Exists(path)) << "the old file stays";
    EXPECT_EQ(Window(1).Tag.Path(), other);
    EXPECT_EQ(Window(1).caption.Get().substr(0, 16), "File User: b" + kind.extension);
    EXPECT_EQ(Record(1).Path.Trimmed(), kind.type == &ProgramType() ? other : path);
}

TEST_P(DocumentWindowTest, ANewFileAsksForItsNameAndItsCommandIsOffUntilItCloses)
{
    EXPECT_TRUE(run.Choose(NewEntry()));
    Form &window = Window(kind.newSlot);
    EXPECT_FALSE(run.Choose(NewEntry()));
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 1);
    window.Tag.image = ImageOf(kind.file);
    MarkModified(window);
    run.face.answers.push_back(Box::kYes);
    EXPECT_FALSE(run.Close(window)) << "the dialog is cancelled";
    run.face.choices.push_back({false, run.At("new" + kind.extension), 1});
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(run.At("new" + kind.extension)), kind.file);
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 0);
    EXPECT_FALSE(NewEntry().enabled) << "a real path, but still the slot of the new file";
    EXPECT_TRUE(run.Close(window));
    EXPECT_TRUE(NewEntry().enabled);
}

TEST_P(DocumentWindowTest, AWindowWithoutChangesAsksNothing)
{
    OpenFile(PutFile("a"));
    run.Choose(NewEntry());
    EXPECT_TRUE(run.Exit());
    EXPECT_THAT(Boxes(), IsEmpty());
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
        if (Control *sts = window->Find("CommSTS")) {
            Press(*sts);
            Press(*sts);
            EXPECT_EQ(List(*window).ListCount(), 16);
        }
        EXPECT_EQ(BytesOf(window->Tag.image), bytes);
        run.Close(*window);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DocumentWindowTest, ::testing::ValuesIn(Kinds()),
                         [](const ::testing::TestParamInfo<Kind> &row) { return row.param.name; });

} // namespace
} // namespace velluto::test
