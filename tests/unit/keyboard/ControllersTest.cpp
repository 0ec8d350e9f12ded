// The sliders, and the split point's readout.
#include "keyboard/Controllers.h"
#include "midi/MidiOut.h"
#include "midi/Monitor.h"
#include "midi/frmMsgEx.h"
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

struct SliderRow {
    const char *title;
    const char *top;
    const char *bottom;
    int firstRun;
};
const std::vector<SliderRow> kRows{{"Volume", "127", "0", 100}, {"Pan", "63", "-64", 64},    {"Vel On", "127", "0", 64},
                                   {"Vel Off", "127", "0", 64}, {"Att Time", "127", "0", 0}, {"Rel Time", "127", "0", 0},
                                   {"Bend", "63", "-64", 64},   {"PMod", "127", "0", 0},     {"COMod", "127", "0", 0},
                                   {"Reverb", "127", "0", 0},   {"Chorus", "127", "0", 0}};

using Sliders = Linked<KeyboardLink>;

TEST_F(Sliders, HaveTheirTitlesAndMarks)
{
    frmTastiera &form = link.Open();
    for (int i = 0; i <= 10; ++i) {
        const SliderRow &row = kRows[static_cast<std::size_t>(i)];
        EXPECT_EQ(form.Label2[i].caption.Get(), row.title);
        EXPECT_EQ(form.Label4[i].caption.Get(), row.top);
        EXPECT_EQ(form.Label5[i].caption.Get(), row.bottom);
        EXPECT_EQ(form.VScroll[i].accessibleName, row.title);
        EXPECT_EQ(form.VScroll[i].min, 127); // at the top
        EXPECT_EQ(form.VScroll[i].max, 0);
        EXPECT_EQ(form.VScroll[i].smallChange, 1);
        EXPECT_EQ(form.VScroll[i].largeChange, 10);
        EXPECT_TRUE(form.VScroll[i].vertical);
        EXPECT_EQ(form.VScroll[i].value, row.firstRun);
    }
}

TEST_F(Sliders, ThePanAxisReadsRAtTheTopCHalfwayLAtTheBottom)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Label2[11].caption.Get(), "R");
    EXPECT_EQ(form.Label2[12].caption.Get(), "L");
    EXPECT_EQ(form.Label2[13].caption.Get(), "C");
    const Place pan = form.VScroll[1].place;
    const auto middle = [&form](int label) { return form.Label2[label].place.Get().top + form.Label2[label].place.Get().height / 2; };
    EXPECT_LT(middle(11), pan.top + pan.height / 4);
    EXPECT_NEAR(middle(13), pan.top + pan.height / 2, 15);
    EXPECT_GT(middle(12), pan.top + pan.height - pan.height / 4);
    for (const int label : {11, 12, 13}) {
        EXPECT_GE(form.Label2[label].place.Get().left, pan.left + pan.width);
    }
}

TEST_F(Sliders, SendTheirMessage)
{
    frmTastiera &form = link.Open();
    for (const int i : {0, 1, 4, 5, 6, 7, 8, 9, 10}) {
        form.VScroll[i].value = 33;
    }
    EXPECT_EQ(link.Taken(), (Sent{Controller(7, 33), Controller(10, 33), Controller(73, 33), Controller(72, 33), PitchBend(33),
                                  Controller(1, 33), Controller(2, 33), Controller(91, 33), Controller(93, 33)}));
}

TEST_F(Sliders, TheChannelOfNowIsPutIn)
{
    frmTastiera &form = link.Open();
    form.Combo1.ListIndex = 15;
    form.VScroll[6].value = 0;
    form.VScroll[0].value = 127;
    EXPECT_EQ(link.Taken(), (Sent{PitchBend(0, 15), Controller(7, 127, 15)}));
}

TEST_F(Sliders, TheChannelChosenAfterASliderResendsNothing)
{
    frmTastiera &form = link.Open();
    form.VScroll[0].value = 90;
    link.Taken();
    form.Combo1.ListIndex = 3;
    EXPECT_EQ(link.Taken(), Sent{});
    form.VScroll[1].value = 10;
    EXPECT_EQ(link.Taken(), (Sent{Controller(10, 10, 3)}));
    form.Combo1.ListIndex = 5;
    link.Click(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60, 64, 5), NoteOff(60, 64, 5)}));
}

TEST_F(Sliders, BothScrollAndChangeSendWhileAHandDrawsThem)
{
    frmTastiera &form = link.Open();
    ScrollGesture::DragTo(form.VScroll[0], 101);
    ScrollGesture::DragTo(form.VScroll[0], 102);
    ScrollGesture::LetGo(form.VScroll[0]);
    EXPECT_EQ(link.Taken(), (Sent{Controller(7, 101), Controller(7, 102), Controller(7, 102)}));
    EXPECT_EQ(link.record[4], 102);
}

TEST_F(Sliders, ShowTheirValueAndPanAndBendLess64)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Label3[0].caption.Get(), "100");
    EXPECT_EQ(form.Label3[1].caption.Get(), "0");
    EXPECT_EQ(form.Label3[2].caption.Get(), "64");
    EXPECT_EQ(form.Label3[6].caption.Get(), "0");
    form.VScroll[1].value = 127;
    EXPECT_EQ(form.Label3[1].caption.Get(), "63");
    form.VScroll[1].value = 0;
    EXPECT_EQ(form.Label3[1].caption.Get(), "-64");
    form.VScroll[6].value = 127;
    EXPECT_EQ(form.Label3[6].caption.Get(), "63");
    form.VScroll[10].value = 127;
    EXPECT_EQ(form.Label3[10].caption.Get(), "127");
}

TEST_F(Sliders, KeepTheirValueInTheRecordAtOnce)
{
    frmTastiera &form = link.Open();
    for (int i = 0; i <= 10; ++i) {
        form.VScroll[i].value = i + 1;
        EXPECT_EQ(link.record[static_cast<std::size_t>(i + 4)], i + 1);
    }
}

TEST_F(Sliders, VelOnMovedRightAfterTheOpeningSendsTheChorusMessage)
{
    frmTastiera &form = link.Open();
    form.VScroll[2].value = 70;
    EXPECT_EQ(link.Taken(), (Sent{Controller(93, 0)}));
    EXPECT_EQ(form.Label3[2].caption.Get(), "70");
    EXPECT_EQ(link.record[6], 70);
}

TEST_F(Sliders, VelOffSendsTheLastMessageAgainWithTheChannelOredIn)
{
    frmTastiera &form = link.Open();
    form.Combo1.ListIndex = 1;
    link.Click(0);
    link.Taken();
    form.Combo1.ListIndex = 2;
    form.VScroll[3].value = 1;
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(36, 64, 3)})); // channels 1 and 2 together
    EXPECT_EQ(link.midi.ShortMsg.Packed(), NoteOff(36, 64, 3));
}

TEST_F(Sliders, MoveWithoutAnOutput)
{
    CloseMidiOut(link.midi);
    frmTastiera &form = link.Open();
    form.VScroll[0].value = 5;
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_EQ(form.Label3[0].caption.Get(), "5");
    EXPECT_EQ(link.record[4], 5);
    EXPECT_EQ(link.midi.ShortMsg.Packed(), Controller(7, 5));
}

TEST_F(Sliders, ShowTheirBytesInTheMonitorEvenWithoutAnOutput)
{
    mnuMsgEx_Click(link.midi);
    frmTastiera &form = link.Open();
    form.VScroll[0].value = 127;
    EXPECT_EQ(link.midi.monitor->Text1.text.Get(), "B0 07 7F \r\n\r\n");
    link.midi.MonitorEnabled = false;
    CloseMidiOut(link.midi);
    form.VScroll[6].value = 0;
    EXPECT_TRUE(link.midi.MonitorEnabled);
    EXPECT_EQ(link.midi.monitor->Text1.text.Get(), "E0 7F 00 \r\n\r\n");
}

TEST_F(Sliders, ADoubleClickOnTheTitleGoesBackToTheValueOfAFirstRun)
{
    frmTastiera &form = link.Open();
    for (int i = 0; i <= 10; ++i) {
        form.VScroll[i].value = 5;
        link.Taken();
        form.Label2[i].DblClick();
        EXPECT_EQ(form.VScroll[i].value, kRows[static_cast<std::size_t>(i)].firstRun);
        EXPECT_EQ(link.Taken().size(), 1U) << i;
        form.Label2[i].DblClick();
        EXPECT_EQ(link.Taken().size(), 0U) << i;
    }
    EXPECT_EQ(form.Label2[1].toolTip.Get(), "Double-click: 0");
    EXPECT_EQ(form.Label2[0].toolTip.Get(), "Double-click: 100");
}

using SplitPoint = Linked<KeyboardLink>;

TEST_F(SplitPoint, ReadsTheOctaveAndTheSharpBehindIt)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Text3.text.Get(), " C2");
    const std::vector<std::pair<int, std::string>> readings{{37, " C2#"}, {38, " D2"},  {42, " F2#"}, {47, " B2"}, {48, " C3"}, {59, " B3"},
                                                            {60, " C4"},  {94, " A6#"}, {95, " B6"},  {96, " C7"}, {36, " C2"}};
    for (const auto &[value, text] : readings) {
        form.VScroll1.value = value;
        EXPECT_EQ(form.Text3.text.Get(), text) << value;
    }
}

TEST_F(SplitPoint, IsReadAgainAtEveryOctaveShift)
{
    frmTastiera &form = link.Open();
    form.Text3.text = std::string("?");
    form.HScroll1.value = 0;
    EXPECT_EQ(form.Text3.text.Get(), " C2");
}

TEST_F(SplitPoint, IsHiddenAndPlaysNoPart)
{
    frmTastiera &form = link.Open();
    for (const Control *control : std::initializer_list<const Control *>{&form.Picture2, &form.VScroll1, &form.Text3, &form.Label1[8]}) {
        EXPECT_FALSE(control->visible) << control->FullName();
    }
    EXPECT_EQ(form.Label1[8].caption.Get(), "Split Point");
    EXPECT_EQ(form.VScroll1.min, 96);
    EXPECT_EQ(form.VScroll1.max, 36);
    form.VScroll1.value = 60;
    EXPECT_EQ(link.Taken(), Sent{});
}

} // namespace
} // namespace velluto::test
