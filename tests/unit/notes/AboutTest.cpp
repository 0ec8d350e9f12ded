// The About box.
#include "unit/notes/NotesProgram.h"

namespace velluto::test {
namespace {

class AboutTest : public NotesTest {
protected:
    frmAbout &Open(TestProgram::Language language = TestProgram::English)
    {
        StartIn(language);
        EXPECT_TRUE(run.Choose(menu.mnuInfo));
        return *notes.about;
    }
};

TEST_F(AboutTest, SaysWhatTheProgramIs)
{
    const frmAbout &form = Open();
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - About Velluto");
    EXPECT_EQ(form.lblTitolo.caption.Get(), "Velluto v 1.1 - KORG PA80 real time control/file manager\r\nversion 1.1, May 2005");
    EXPECT_EQ(form.picVelluto.accessibleName, "Velluto");
}

TEST_F(AboutTest, InItalian)
{
    const frmAbout &form = Open(TestProgram::Italian);
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - Informazioni su Velluto");
    EXPECT_EQ(form.lblTitolo.caption.Get(), "Velluto v 1.1 - KORG PA80 real time control/file manager\r\nversione 1.1, maggio 2005");
}

TEST_F(AboutTest, TellsTheVersionThatWasBuilt)
{
    EXPECT_THAT(Open().lblTitolo.caption.Get(), ::testing::StartsWith("Velluto v " VELLUTO_VERSION " - "));
    EXPECT_THAT(notes.about->lblTitolo.caption.Get(), ::testing::HasSubstr("\nversion " VELLUTO_VERSION ","));
}

TEST_F(AboutTest, StandsInTheMiddleOfTheFrameWhereverItStoodLast)
{
    Entry(12).Top = 15;
    Entry(12).Left = 15;
    const frmAbout &form = Open();
    const Size room = run.face.Workspace();
    EXPECT_EQ(form.Left(), (room.width - form.Width()) / 2);
    EXPECT_EQ(form.Top(), (room.height - form.Height()) / 2);
    EXPECT_GT(form.Left(), 0);
    EXPECT_GT(form.Top(), 0);
}

TEST_F(AboutTest, KeepsTheChildContract)
{
    const frmAbout &form = Open();
    EXPECT_EQ(form.Tag.Kind(), 13);
    EXPECT_EQ(Entry(12).State, 1);
    EXPECT_FALSE(menu.mnuInfo.enabled);
    EXPECT_EQ(children.ChildCount, 1);
    EXPECT_TRUE(menu.mnuWindow.enabled);
}

TEST_F(AboutTest, OkClosesItAndItsPlaceIsStored)
{
    frmAbout &form = Open();
    children.Move(form, 150, 300);
    const Size size{form.Width(), form.Height()};
    Press(form.cmdOK);
    children.Sweep();
    EXPECT_EQ(notes.about, nullptr);
    EXPECT_TRUE(menu.mnuInfo.enabled);
    EXPECT_EQ(Entry(12).Left, 150);
    EXPECT_EQ(Entry(12).Top, 300);
    EXPECT_EQ(Entry(12).Width, size.width);
    EXPECT_EQ(Entry(12).Height, size.height);
    EXPECT_EQ(Entry(12).State, 0);
    EXPECT_EQ(children.ChildCount, 0);
    EXPECT_FALSE(menu.mnuModifica.enabled);
}

TEST_F(AboutTest, ClosedWithTheFrameItsStateStays1)
{
    Open();
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(Entry(12).State, 1);
}

TEST_F(AboutTest, ItsButtonAnswersReturnAndEscape)
{
    const frmAbout &form = Open();
    EXPECT_TRUE(form.cmdOK.answersReturn);
    EXPECT_TRUE(form.cmdOK.answersEscape);
    EXPECT_EQ(form.cmdOK.caption.Get(), "OK");
}

TEST_F(AboutTest, ControlsLieInsideAndApart)
{
    const frmAbout &form = Open();
    const Place picture = form.picVelluto.place;
    const Place text = form.lblTitolo.place;
    const Place ok = form.cmdOK.place;
    EXPECT_GE(text.left, picture.left + picture.width);
    EXPECT_LE(text.left + text.width, form.ScaleWidth());
    EXPECT_GE(ok.top, text.top + text.height);
    EXPECT_GE(ok.left, picture.left + picture.width);
    EXPECT_LE(ok.top + ok.height, form.ScaleHeight());
    EXPECT_GE(text.width, run.face.LabelWidth("Velluto v 1.1 - KORG PA80 real time control/file manager"));
}

} // namespace
} // namespace velluto::test
