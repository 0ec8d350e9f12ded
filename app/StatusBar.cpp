#include "app/StatusBar.h"

#include <algorithm>

namespace velluto {

namespace {

// Twips.
constexpr int kBarHeight = 315;
constexpr int kLabelTop = 30;
constexpr int kLabelHeight = 255;
constexpr int kRightMargin = 40;
constexpr int kLabelPadding = 120; // keeps date and time apart

int InnerWidth(const frmMain &frame)
{
    return frame.shownWidth > 0 ? frame.shownWidth : frame.ScaleWidth();
}

Place LabelPlace(int left, int width)
{
    return {left, kLabelTop, width, kLabelHeight};
}

void ShowDateAndTime(Modulo1 &app)
{
    app.frame.LabelData.caption = app.ports.clock.LongDate();
    app.frame.LabelTime.caption = app.ports.clock.Time();
}

} // namespace

void SetUpStatusBar(Modulo1 &app)
{
    frmMain &frame = app.frame;
    frame.LabelNomeAppl.caption = " " + app.TitleLine + " ";
    app.NaturalLabelWidth = app.face.LabelWidth(frame.LabelNomeAppl.caption);
    ShowDateAndTime(app);
    LayOutStatusBar(app);
}

void LayOutStatusBar(Modulo1 &app)
{
    frmMain &frame = app.frame;
    const int width = InnerWidth(frame);
    frame.Picture1.place = Place{0, frame.ScaleHeight() - kBarHeight, width, kBarHeight};
    const int timeWidth = app.face.LabelWidth(frame.LabelTime.caption) + kLabelPadding;
    const int dateWidth = app.face.LabelWidth(frame.LabelData.caption) + kLabelPadding;
    const int timeLeft = width - kRightMargin - timeWidth;
    const int dateLeft = timeLeft - dateWidth;
    frame.LabelTime.place = LabelPlace(timeLeft, timeWidth);
    frame.LabelData.place = LabelPlace(dateLeft, dateWidth);
    frame.LabelNomeAppl.place = LabelPlace(0, std::clamp(dateLeft, 0, app.NaturalLabelWidth));
}

void TimerOrologio_Timer(Modulo1 &app)
{
    ShowDateAndTime(app);
    LayOutStatusBar(app);
}

} // namespace velluto
