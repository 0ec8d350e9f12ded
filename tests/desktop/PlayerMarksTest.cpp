// Hands on the marks of the player: sliders, markers over the bar, and the cursor that stands on one scale with them.
#include "desktop/PlayerDesk.h"

#include <QStyleOptionSlider>

namespace velluto::test {

namespace {

class PlayerMarksTest : public PlayerDesk {
protected:
    void SetUp() override
    {
        PlayerDesk::SetUp();
        Open();
        ClickRow(Form().ListMidiSel, 0);
    }
    // Pixels from the left of the frame to the tip of a marker, the middle of the cursor, the middle of a slider's handle.
    int TipOf(const Marker &marker)
    {
        const QRect drawn = Of(marker).geometry();
        return marker.endsSection ? drawn.left() : drawn.right() + 1;
    }
    int Cursor()
    {
        QWidget &line = Of(Form().Line1);
        return line.mapTo(&Of(Form().Frame1), QPoint(line.width() / 2, 0)).x();
    }
    int HandleOf(const ScrollBar &bar)
    {
        auto &slider = Of<QSlider>(bar);
        QStyleOptionSlider option;
        option.initFrom(&slider);
        option.orientation = Qt::Horizontal;
        option.minimum = slider.minimum();
        option.maximum = slider.maximum();
        option.sliderPosition = slider.sliderPosition();
        option.sliderValue = slider.value();
        option.subControls = QStyle::SC_All;
        const QRect handle = slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
        return slider.x() + handle.center().x();
    }
    QString TextOf(const Label &label) { return Of<QLabel>(label).text(); }
    // So many pixels are the file's whole length.
    int Travel() { return ToPixels(Form().Picture2.travel); }
    void MoveMarker(const Marker &marker, int pixels)
    {
        QWidget &drawn = Of(marker);
        Draw(drawn, drawn.rect().center(), pixels);
    }
};

TEST_F(PlayerMarksTest, MarkersCursorAndSlidersStandOnOneScale)
{
    constexpr int kNear = 3; // a slider of the style has its own idea of a pixel or two
    for (const int value : {0, 50, 100, 200}) {
        Form().HScrollStop.value = 200;
        Form().HScrollStart.value = value;
        Form().HScrollStop.value = value;
        EXPECT_NEAR(TipOf(Form().Picture2), Cursor(), 1) << value;
        EXPECT_EQ(TipOf(Form().Picture3), TipOf(Form().Picture2)) << value;
        EXPECT_NEAR(HandleOf(Form().HScrollStart), Cursor(), kNear) << value;
        EXPECT_NEAR(HandleOf(Form().HScrollStop), Cursor(), kNear) << value;
    }
    EXPECT_LE(Cursor(), Of(Form().Picture1).geometry().right());
}

TEST_F(PlayerMarksTest, AMarkerGoesWhereTheHandGoesAndItsSliderWithIt)
{
    MoveMarker(Form().Picture2, Travel() / 4);
    EXPECT_EQ(Form().HScrollStart.value, 50);
    EXPECT_EQ(Of<QSlider>(Form().HScrollStart).value(), 50);
    EXPECT_EQ(TextOf(Form().LabStart), QStringLiteral("50"));
    EXPECT_FALSE(program.player.MarksActive); // the end of the drag does the rest
    Release(Of(Form().Picture2));
    EXPECT_TRUE(program.player.MarksActive);
    EXPECT_EQ(program.player.StartMark, 50);
    EXPECT_EQ(TextOf(Form().LabTrackPosition), QStringLiteral("50 (25%)"));
}

TEST_F(PlayerMarksTest, TheStopMarkerLikewise)
{
    MoveMarker(Form().Picture3, -Travel() / 2);
    Release(Of(Form().Picture3));
    EXPECT_EQ(Form().HScrollStop.value, 100);
    EXPECT_EQ(program.player.StopMark, 100);
    EXPECT_EQ(TextOf(Form().LabStop), QStringLiteral("100"));
}

TEST_F(PlayerMarksTest, DrawnPastTheOtherAMarkerGoesBackToItWhenItIsLetGo)
{
    Form().HScrollStop.value = 100;
    MoveMarker(Form().Picture2, Travel());
    EXPECT_EQ(TextOf(Form().LabStart), QStringLiteral("200"));
    Release(Of(Form().Picture2));
    EXPECT_EQ(TextOf(Form().LabStart), QStringLiteral("100"));
    EXPECT_EQ(Form().HScrollStart.value, 100);
    EXPECT_EQ(TipOf(Form().Picture2), TipOf(Form().Picture3));
}

TEST_F(PlayerMarksTest, DrawnPastTheEndsAMarkerStaysThere)
{
    MoveMarker(Form().Picture2, -500);
    Release(Of(Form().Picture2));
    EXPECT_EQ(Form().HScrollStart.value, 0);
    MoveMarker(Form().Picture3, 500);
    Release(Of(Form().Picture3));
    EXPECT_EQ(Form().HScrollStop.value, 200);
    EXPECT_FALSE(program.player.MarksActive);
}

TEST_F(PlayerMarksTest, MarkersAtOnePlaceCanBothBeTaken)
{
    Form().HScrollStart.value = 100;
    Form().HScrollStop.value = 100;
    EXPECT_FALSE(Of(Form().Picture2).geometry().intersects(Of(Form().Picture3).geometry()));
}

TEST_F(PlayerMarksTest, OnlyTheLeftButtonDrawsAMarker)
{
    QWidget &marker = Of(Form().Picture2);
    Send(marker, QEvent::MouseButtonPress, {5, 5}, Qt::RightButton, Qt::RightButton);
    Send(marker, QEvent::MouseMove, {105, 5}, Qt::NoButton, Qt::RightButton);
    EXPECT_EQ(Form().HScrollStart.value, 0);
}

TEST_F(PlayerMarksTest, AReleaseThatGotLostEndsTheDragAtTheNextMove)
{
    MoveMarker(Form().Picture2, Travel() / 4);
    Send(Of(Form().Picture2), QEvent::MouseMove, {300, 5}, Qt::NoButton, {});
    EXPECT_EQ(Form().HScrollStart.value, 50);
    EXPECT_TRUE(program.player.MarksActive);
}

TEST_F(PlayerMarksTest, ADragThatIsCutOffByPlayAllCountsAsLetGo)
{
    MoveMarker(Form().Picture2, Travel() / 4);
    Press(Form().CommPlayAll);
    EXPECT_EQ(TextOf(Form().LabStart), QStringLiteral("Start"));
    EXPECT_EQ(program.player.StartMark, 50);
    Press(Form().CommPlayAll);
    // What the program writes now is no part of the drag.
    Form().HScrollStart.value = 20;
    EXPECT_EQ(program.player.StartMark, 20);
}

TEST_F(PlayerMarksTest, WithoutAFileNothingCanBeMarked)
{
    ClickRow(Form().ListMidiSel, 0, Qt::ControlModifier);
    for (const Control *control :
         std::initializer_list<Control *>{&Form().HScrollStart, &Form().HScrollStop, &Form().Picture2, &Form().Picture3}) {
        EXPECT_FALSE(Of(*control).isEnabled()) << control->FullName();
    }
    EXPECT_EQ(TextOf(Form().LabStart), QStringLiteral("Start"));
    EXPECT_EQ(TextOf(Form().LabStop), QStringLiteral("Stop"));
    EXPECT_TRUE(Of<QLabel>(Form().LabStart).alignment().testFlag(Qt::AlignHCenter));
}

TEST_F(PlayerMarksTest, ASliderIsDrawnWithItsMarkerAndLabel)
{
    auto &slider = Of<QSlider>(Form().HScrollStop);
    const int before = TipOf(Form().Picture3);
    Draw(slider, {HandleOf(Form().HScrollStop) - slider.x(), slider.height() / 2}, -100);
    const int value = slider.value();
    EXPECT_LT(value, 200);
    EXPECT_EQ(TextOf(Form().LabStop), QString::number(value));
    EXPECT_LT(TipOf(Form().Picture3), before);
    EXPECT_EQ(program.player.StopMark, 200);
    Release(slider);
    EXPECT_EQ(program.player.StopMark, value);
}

TEST_F(PlayerMarksTest, KeysMoveAMarkByOneOrByATenth)
{
    PressIn(Form().HScrollStart, Qt::Key_Right);
    EXPECT_EQ(program.player.StartMark, 1);
    PressIn(Form().HScrollStart, Qt::Key_PageUp);
    EXPECT_EQ(program.player.StartMark, 21);
    PressIn(Form().HScrollStop, Qt::Key_Home);
    EXPECT_EQ(program.player.StopMark, 21);
    PressIn(Form().HScrollStop, Qt::Key_End);
    EXPECT_EQ(program.player.StopMark, 200);
}

TEST_F(PlayerMarksTest, TheNextFileHasItsOwnRange)
{
    Song("b.mid", 40);
    PressIn(Form().HScrollStart, Qt::Key_PageUp);
    ClickRow(Form().ListMidiSel, 1);
    EXPECT_EQ(Of<QSlider>(Form().HScrollStop).maximum(), 40);
    EXPECT_EQ(Of<QSlider>(Form().HScrollStart).value(), 0);
    EXPECT_EQ(Of<QSlider>(Form().HScrollStop).value(), 40);
    EXPECT_EQ(Of<QSlider>(Form().HScrollStop).pageStep(), 4);
}

} // namespace

} // namespace velluto::test
