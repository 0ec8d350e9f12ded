// Cut, Copy and Paste in the Edit menu of the file windows themselves, as one command leads to what the next one may do.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

class OfferOnWindowsTest : public EditTest {
protected:
    bool Offered(MenuEntry &entry, DocumentForm &window, const Rows &rows)
    {
        Pick(window, rows);
        mnuModifica_Click(files);
        return entry.enabled;
    }
    MenuEntry &cut = app.frame.mnuTaglia;
    MenuEntry &copy = app.frame.mnuCopia;
    MenuEntry &paste = app.frame.mnuIncolla;

    const std::vector<Lettered> programs{{"Piano", 2, "AAA"}, {"Organ", 3, "bb"}};
    const std::vector<Lettered> stylesOnly{{"Samba", 0, "SSSS"}, {"Tango", 1, "TTTTT"}};
    const std::vector<Lettered> pairs{{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}};
};

TEST_F(OfferOnWindowsTest, ACopyIsPastedIntoAFreeRowByTheMenu)
{
    Pick(Pcg("a.pcg", programs), {2, 3});
    EXPECT_FALSE(run.Choose(paste));
    EXPECT_TRUE(run.Choose(copy));
    EXPECT_FALSE(run.Choose(paste)) << "the rows selected are not empty";
    frmPcgUN &window = NewPcg64();
    Pick(window, {7});
    EXPECT_TRUE(run.Choose(paste));
    EXPECT_EQ(Drawn(window.List1)[7], " 008 Piano");
    EXPECT_EQ(Drawn(window.List1)[8], " 009 Organ");
}

TEST_F(OfferOnWindowsTest, ClosingTheSourceGreysPaste)
{
    frmPcgUN &source = Pcg("a.pcg", programs);
    Copy(source, {2});
    frmPcgUN &window = NewPcg64();
    EXPECT_TRUE(Offered(paste, window, {0}));
    run.Close(source);
    EXPECT_FALSE(Offered(paste, window, {0}));
}

TEST_F(OfferOnWindowsTest, PrintingAStyleFileGreysPaste)
{
    Copy(Pcg("a.pcg", programs), {2});
    frmPcgUN &window = NewPcg64();
    frmStyUN &styles = Style("a.sty", pairs);
    EXPECT_TRUE(Offered(paste, window, {0}));
    app.children.Activate(styles);
    run.Choose(app.frame.mnuStampa);
    EXPECT_FALSE(Offered(paste, window, {0}));
}

TEST_F(OfferOnWindowsTest, PerformancesAreNotOfferedToPrograms)
{
    Copy(Performance("a.prf", {{"Ballad", 0, "AAA"}}), {0});
    EXPECT_FALSE(Offered(paste, NewPcg64(), {0}));
    EXPECT_TRUE(Offered(paste, NewPrf(), {0}));
}

TEST_F(OfferOnWindowsTest, StylesOnlyAreNotOfferedToAFileWithSts)
{
    frmStyUN &source = Style("a.sty", stylesOnly);
    frmStyUN &target = Style("b.sty", pairs);
    Copy(source, {0});
    EXPECT_FALSE(Offered(paste, target, {5}));
    EXPECT_TRUE(Offered(paste, source, {5}));
}

TEST_F(OfferOnWindowsTest, TheFirstPasteIntoANewStyleFileSettlesWhichStylesItTakes)
{
    frmStyUN &without = Style("a.sty", stylesOnly);
    frmStyUN &with = Style("b.sty", pairs);
    frmStyUN &window = NewSty();
    Copy(with, {0});
    EXPECT_TRUE(Offered(paste, window, {0}));
    Copy(without, {0});
    EXPECT_TRUE(Offered(paste, window, {0}));
    Paste(window, {0});
    EXPECT_TRUE(Offered(paste, window, {1}));
    Copy(with, {0});
    EXPECT_FALSE(Offered(paste, window, {1}));
    Cut(window, {0});
    Copy(with, {0});
    EXPECT_TRUE(Offered(paste, window, {1})) << "empty again, it takes either";
}

TEST_F(OfferOnWindowsTest, AfterACutThePasteGoesByTheLastCopysSts)
{
    frmStyUN &with = Style("a.sty", {{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}, {"Polka", 1, "P"}, {"Polka STS", 1, "pp"}});
    frmStyUN &without = Style("b.sty", stylesOnly);
    Cut(with, {0});
    EXPECT_FALSE(Offered(paste, with, {7})) << "nothing was copied yet: as if from a file without STS";
    EXPECT_TRUE(Offered(paste, without, {7}));
    Copy(with, {1});
    Cut(without, {0});
    EXPECT_TRUE(Offered(paste, with, {7}));
    EXPECT_FALSE(Offered(paste, without, {7}));
}

TEST_F(OfferOnWindowsTest, InUser1OnlyCopyIsOffered)
{
    Pcg("a.pcg", programs);
    Press(Window(1).CommUser[9]);
    run.Choose(app.frame.mnuPcgUser[9]);
    Copy(Window(1), {2});
    EXPECT_TRUE(Offered(copy, Window(9), {2}));
    EXPECT_FALSE(Offered(cut, Window(9), {2}));
    EXPECT_FALSE(Offered(paste, Window(9), {5}));
    EXPECT_TRUE(Offered(paste, Window(1), {5}));
}

TEST_F(OfferOnWindowsTest, TheViewOfTheStsOffersNothing)
{
    frmStyUN &window = Style("a.sty", pairs);
    Copy(window, {0});
    Press(window.CommSTS);
    EXPECT_FALSE(Offered(copy, window, {0}));
    EXPECT_FALSE(Offered(cut, window, {0}));
    EXPECT_FALSE(Offered(paste, window, {4}));
    Press(window.CommSTS);
    EXPECT_TRUE(Offered(copy, window, {0}));
}

TEST_F(OfferOnWindowsTest, AFileOfOneStyleShowsNoneAndTakesPairs)
{
    Copy(Style("a.sty", pairs), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}});
    EXPECT_TRUE(Offered(paste, window, {0}));
    EXPECT_FALSE(Offered(copy, window, {0}));
}

TEST_F(OfferOnWindowsTest, TheRightButtonPopsTheMenuUpWithItsStateComputed)
{
    frmPcgUN &window = Pcg("a.pcg", programs);
    Pick(window, {2});
    window.List1.MouseDown(MouseButton::Right);
    EXPECT_THAT(run.face.popUps, ElementsAre(&app.frame.mnuModifica));
    EXPECT_TRUE(copy.enabled);
    Pick(window, {0});
    window.List1.MouseDown(MouseButton::Right);
    EXPECT_FALSE(copy.enabled);
}

} // namespace
} // namespace velluto::test
