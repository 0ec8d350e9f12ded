#include "app/StatusBar.h"

#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

using namespace velluto;
using namespace velluto::test;

namespace {

struct StatusBarTest : testing::Test {
    TestProgram run;
    frmMain &frame = run.program.app.frame;

    void SetUp() override
    {
        ASSERT_TRUE(run.Start());
        run.program.app.children.Restore(frame);
    }
    void Widen(int width) { run.program.app.children.Resize(frame, width, 8000); }
    [[nodiscard]] int Natural() const { return run.program.app.NaturalLabelWidth; }
    static int RightOf(const Label &label) { return label.place.Get().left + label.place.Get().width; }
};

} // namespace

TEST_F(StatusBarTest, TheTimeStays40UnitsFromTheRightEdgeAndTheDateStandsToItsLeft)
{
    for (const int width : {20000, 12000, 9000}) {
        Widen(width);
        EXPECT_EQ(RightOf(frame.LabelTime), width - 40);
        EXPECT_EQ(RightOf(frame.LabelData), frame.LabelTime.place.Get().left);
    }
}

TEST_F(StatusBarTest, TheNameKeepsItsNaturalWidthWhereThereIsRoom)
{
    Widen(30000);
    EXPECT_EQ(Natural(), run.face.LabelWidth(" " + run.program.app.TitleLine + " "));
    EXPECT_EQ(frame.LabelNomeAppl.place.Get().left, 0);
    EXPECT_EQ(frame.LabelNomeAppl.place.Get().width, Natural());
}

TEST_F(StatusBarTest, ANarrowedFrameShrinksTheNameToTheDateAndItComesBackToItsNaturalWidthAndNotBeyond)
{
    Widen(9000);
    EXPECT_LT(frame.LabelNomeAppl.place.Get().width, Natural());
    EXPECT_EQ(RightOf(frame.LabelNomeAppl), frame.LabelData.place.Get().left);
    Widen(9500);
    EXPECT_EQ(RightOf(frame.LabelNomeAppl), frame.LabelData.place.Get().left);
    Widen(40000);
    EXPECT_EQ(frame.LabelNomeAppl.place.Get().width, Natural());
}

TEST_F(StatusBarTest, ANameWithoutAnyRoomHasNoWidth)
{
    Widen(1000);
    EXPECT_EQ(frame.LabelNomeAppl.place.Get().width, 0);
}

TEST_F(StatusBarTest, NothingMovesWhileALayoutIsBeingRestored)
{
    Widen(20000);
    const Place before = frame.LabelTime.place;
    run.program.app.children.RestoringLayout = true;
    Widen(9000);
    EXPECT_EQ(frame.LabelTime.place.Get(), before);
}

TEST_F(StatusBarTest, TheWidthThatAFaceToldIsTheOneInUse)
{
    frame.shownWidth = 22000;
    frame.Form_Resize();
    EXPECT_EQ(RightOf(frame.LabelTime), 22000 - 40);
}

TEST_F(StatusBarTest, TheClockRunsEachSecond)
{
    EXPECT_EQ(frame.TimerOrologio.interval, 1000);
    EXPECT_TRUE(frame.TimerOrologio.enabled);
    run.clock.longDate = "Sunday, 15 May 2005";
    run.clock.time = "00:00:01";
    frame.TimerOrologio.Tick();
    EXPECT_EQ(frame.LabelData.caption.Get(), "Sunday, 15 May 2005");
    EXPECT_EQ(frame.LabelTime.caption.Get(), "00:00:01");
}

TEST_F(StatusBarTest, TheCommandFlipsItsCheckMarkAndTheBarTogether)
{
    EXPECT_TRUE(frame.Picture1.visible);
    EXPECT_TRUE(run.Choose(frame.mnuVisBarraStato));
    EXPECT_FALSE(frame.mnuVisBarraStato.checked);
    EXPECT_FALSE(frame.Picture1.visible);
    run.Choose(frame.mnuVisBarraStato);
    EXPECT_TRUE(frame.mnuVisBarraStato.checked);
    EXPECT_TRUE(frame.Picture1.visible);
}
