// Where a Program window comes up, and how large.
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

class ProgramPlaceTest : public ProgramWindowTest {};

TEST_F(ProgramPlaceTest, AFileNeverSeenBeforeGetsItsNaturalPlace)
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

TEST_F(ProgramPlaceTest, ALargeBankIs33LinesHigh)
{
    run.Choose(app.frame.mnuPcgNuovo128);
    EXPECT_EQ(Window(12).List1.place.Get().height, 33 * run.face.MeasureA(Window(12).List1.font).height);
}

// A face with the tallest usual row and window frame.
struct TallFace : StandinFace {
    Size MeasureA(const Font & /*font*/) override { return {135, 255}; }
    Size ChildFrame() override { return {120, 450}; }
};

TEST_F(ProgramPlaceTest, ASmallBankStaysBelowTheHeightOfALargeOneWithATallFontToo)
{
    TallFace tall;
    FilesFrom machine(run.folder->Path());
    Velluto other(Ports{machine, run.midi, run.clock, run.printer, run.sequencer, run.folders, run.ticks}, tall);
    tall.onModal = [](Form &form) { Press(*ControlNamed(form, "CommOK")); };
    ASSERT_TRUE(StartUp(other));
    ASSERT_TRUE(ChooseMenu(other.app.frame.mnuPcgNuovo64));
    const frmPcgUN &window = dynamic_cast<frmPcgUN &>(*other.files.programs.windows[11]);
    EXPECT_LT(window.Height(), 5082);
    EXPECT_EQ(window.List1.place.Get().height, 17 * 255);
    EXPECT_GE(window.CommClose.place.Get().height, 225);
    EXPECT_LE(window.CommClose.place.Get().top + window.CommClose.place.Get().height, window.ScaleHeight());
}

TEST_F(ProgramPlaceTest, TheRectangleComesBackOnlyForAFileThatItsSlotKnew)
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

TEST_F(ProgramPlaceTest, ARecordAsHighAsALargeBankLosesItsPlace)
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

TEST_F(ProgramPlaceTest, ABankKeepsItsPlaceOnlyAfterAnOpenThatKnewItsFile)
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

TEST_F(ProgramPlaceTest, TheWindowIsNeverSmallerThanItsNaturalSize)
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

TEST_F(ProgramPlaceTest, MinimisedIsState2AndMaximisedLeavesItAlone)
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

TEST_F(ProgramPlaceTest, GeometryIsLimitedToTheFieldsOfTheRecord)
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

TEST_F(ProgramPlaceTest, NonsenseGeometryInTheSettingsIsNoHarm)
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

} // namespace
} // namespace velluto::test
