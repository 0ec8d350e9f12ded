// The window of the user guide, and the file that it shows.
#include "unit/notes/NotesProgram.h"

namespace velluto::test {
namespace {

constexpr std::string_view kText = "Start\r\nEnd\r\n\r\nStart\r\nwords\r\n\r\nEnd\r\nmore\r\n";

class GuideTest : public NotesTest {
protected:
    void SetUp() override { StartIn(TestProgram::English); }
    frmGuida &Open()
    {
        PutFile(kEnglishGuide, kText);
        EXPECT_TRUE(run.Choose(menu.mnuGuida));
        return *notes.guide;
    }
};

TEST_F(GuideTest, ShowsTheFileOfTheRunsLanguage)
{
    PutFile(kItalianGuide, "Inizio\r\n");
    EXPECT_EQ(Open().Text1.text.Get(), kText);
    EXPECT_EQ(notes.GuideLength, 41);
    EXPECT_EQ(notes.GuideText, ""); // the window has it
    EXPECT_EQ(run.program.app.CurrentOperation, "Opening Velluto-UserGuide.txt");
}

TEST_F(GuideTest, ADoubleClickPutsTheCaretBeforeTheFoundLineAndTheLineAtTheTop)
{
    frmGuida &form = Open();
    form.Text1.caret = 2;
    Raise(form.Text1.DblClick);
    EXPECT_EQ(form.Text1.caret, 14);
    EXPECT_EQ(form.Text1.AskedAtTop(), 14);
    // A heading that has no other one below it leads back to the top.
    Raise(form.Text1.DblClick);
    EXPECT_EQ(form.Text1.caret, 0);
    EXPECT_EQ(form.Text1.AskedAtTop(), 0);
}

TEST_F(GuideTest, ALineIsAskedToTheTopAnewAfterTheUserHasScrolledAway)
{
    frmGuida &form = Open();
    int asked = 0;
    form.Text1.observer = [&asked](Aspect aspect) { asked += aspect == Aspect::Top ? 1 : 0; };
    for (int i = 0; i < 2; ++i) {
        form.Text1.caret = 2;
        Raise(form.Text1.DblClick);
    }
    EXPECT_EQ(asked, 2);
}

TEST_F(GuideTest, KeepsTheChildContract)
{
    frmGuida &form = Open();
    EXPECT_EQ(form.caption.Get(), "User's Guide - Velluto v 1.1");
    EXPECT_EQ(form.Tag.prefix, std::string(1, '\x0B') + std::string(19, '\0'));
    EXPECT_FALSE(menu.mnuGuida.enabled);
    EXPECT_EQ(children.ChildCount, 1);
    EXPECT_FALSE(children.RestoringLayout);
    EXPECT_TRUE(menu.mnuWindow.enabled);
    EXPECT_EQ(Entry(10).State, 1);
    EXPECT_STREQ(form.Text1.font.name, "courier new");
    EXPECT_EQ(form.Text1.font.size, 10);
    EXPECT_EQ(form.Text1.accessibleName, "User's Guide");
}

TEST_F(GuideTest, OpensInTheSamePlaceWhateverTheEntryHolds)
{
    run.face.onModal = nullptr;
    Entry(10).Top = 900;
    Entry(10).Left = 700;
    Entry(10).Width = 3000;
    Entry(10).Height = 2000;
    menu.Picture1.place = Place{0, 0, 9000, 330};
    // The frame's inside is 9750 high.
    EXPECT_EQ(Open().place.Get(), (Place{0, 0, 9600, 9750 - 330 - 750}));
}

TEST_F(GuideTest, IsForReadingAndKeysAreThrownAway)
{
    frmGuida &form = Open();
    EXPECT_TRUE(form.Text1.readOnly);
    PressKey(form.Text1, Key::Delete);
    PressKey(form.Text1, Key::PageDown);
    EXPECT_EQ(form.Text1.text.Get(), kText);
    EXPECT_EQ(form.Text1.caret, 0);
}

TEST_F(GuideTest, ItsTimerStandsStillAndStopsItselfIfItFires)
{
    frmGuida &form = Open();
    EXPECT_EQ(form.Timer1.interval, 10);
    EXPECT_FALSE(form.Timer1.enabled);
    form.Timer1.enabled = true;
    Raise(form.Timer1.Tick);
    EXPECT_FALSE(form.Timer1.enabled);
    EXPECT_EQ(form.Text1.text.Get(), kText);
}

TEST_F(GuideTest, TheTextFollowsTheInnerSizeWhereThatIsLargerThanTheMargin)
{
    frmGuida &form = Open();
    children.Resize(form, 6000, 5000);
    EXPECT_EQ(form.Text1.place.Get(), (Place{60, 60, form.ScaleWidth() - 120, form.ScaleHeight() - 120}));
    EXPECT_EQ(Entry(10).Width, 6000);
    EXPECT_EQ(Entry(10).Height, 5000);
    const Place before = form.Text1.place;
    children.Resize(form, form.frame.width + 120, 4000);
    EXPECT_EQ(form.Text1.place.Get().width, before.width);
    EXPECT_EQ(form.Text1.place.Get().height, form.ScaleHeight() - 120);
    children.Resize(form, form.frame.width + 121, 10);
    EXPECT_EQ(form.Text1.place.Get().width, 1);
}

TEST_F(GuideTest, MinimisedItsStateIs2AndRestored1)
{
    frmGuida &form = Open();
    children.Minimise(form);
    EXPECT_EQ(Entry(10).State, 2);
    children.Restore(form);
    EXPECT_EQ(Entry(10).State, 1);
}

TEST_F(GuideTest, ClosedItGivesBackItsEntryAndStoresItsPlace)
{
    frmGuida &form = Open();
    children.Move(form, -75, 225);
    run.Close(form);
    EXPECT_TRUE(menu.mnuGuida.enabled);
    EXPECT_EQ(Entry(10).Left, -75);
    EXPECT_EQ(Entry(10).Top, 225);
    EXPECT_EQ(Entry(10).Width, 9600);
    EXPECT_EQ(Entry(10).State, 0);
    EXPECT_EQ(children.ChildCount, 0);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_EQ(notes.guide, nullptr);
}

TEST_F(GuideTest, ClosedWithTheFrameItsStateStays1)
{
    Open();
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(Entry(10).State, 1);
}

TEST_F(GuideTest, AMissingFileIsToldAndNothingElseHappens)
{
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Opening Velluto-UserGuide.txt: File not found");
    EXPECT_EQ(notes.guide, nullptr);
    EXPECT_TRUE(menu.mnuGuida.enabled);
    EXPECT_EQ(children.ChildCount, 0);
    EXPECT_FALSE(std::filesystem::exists(run.At(kEnglishGuide)));
}

TEST_F(GuideTest, AFileOf35400BytesFitsAndALongerOneIsRefused)
{
    PutFile(kEnglishGuide, std::string(35400, 'x'));
    EXPECT_TRUE(run.Choose(menu.mnuGuida));
    ASSERT_NE(notes.guide, nullptr);
    EXPECT_EQ(notes.guide->Text1.text.Get().size(), 35400U);
    run.Close(*notes.guide);

    PutFile(kEnglishGuide, std::string(35401, 'x'));
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Opening Velluto-UserGuide.txt: Disk reading error");
    EXPECT_EQ(notes.guide, nullptr);
}

TEST_F(GuideTest, AnEmptyFileIsShownEmptyAndJumpsNowhere)
{
    PutFile(kEnglishGuide, "");
    run.Choose(menu.mnuGuida);
    ASSERT_NE(notes.guide, nullptr);
    EXPECT_EQ(notes.guide->Text1.text.Get(), "");
    Raise(notes.guide->Text1.DblClick);
    EXPECT_EQ(notes.guide->Text1.caret, 0);
}

TEST_F(GuideTest, AFolderInItsPlaceIsTold)
{
    std::filesystem::create_directory(run.At(kEnglishGuide));
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Opening Velluto-UserGuide.txt: Read only file");
    EXPECT_EQ(notes.guide, nullptr);
}

TEST_F(GuideTest, AFailingReadIsToldAndAnUnreadyDiskIsAskedAgain)
{
    PutFile(kEnglishGuide, kText);
    run.files.faults.push_back({FileFault::Operation::Read, run.At(kEnglishGuide), FileError::kDeviceInputOutput, 1});
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Opening Velluto-UserGuide.txt: Disk reading error");
    EXPECT_EQ(notes.guide, nullptr);

    run.files.faults.push_back({FileFault::Operation::Open, run.At(kEnglishGuide), FileError::kDiskNotReady, 1});
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Opening Velluto-UserGuide.txt: Disk not ready or not formatted");
    ASSERT_NE(notes.guide, nullptr);
    EXPECT_EQ(notes.guide->Text1.text.Get(), kText);
}

TEST_F(NotesTest, TheItalianGuide)
{
    StartIn(TestProgram::Italian);
    run.Choose(menu.mnuGuida);
    EXPECT_EQ(TheBox(), "Apertura di Velluto-GuidaUtente.txt: File assente");
    PutFile(kItalianGuide, "perch\xE9\r\n");
    run.Choose(menu.mnuGuida);
    ASSERT_NE(notes.guide, nullptr);
    EXPECT_EQ(notes.guide->Text1.text.Get(), "perché\r\n");
    EXPECT_EQ(notes.guide->caption.Get(), "Guida Utente - Velluto v 1.1");
}

} // namespace
} // namespace velluto::test
