#include "desktop/KeyboardBinders.h"

#include "desktop/Keys.h"
#include "view/Gestures.h"

#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace velluto {

namespace {

constexpr int kNotch = 120;    // of the wheel, in Qt's eighths of a degree
constexpr int kMostMarks = 12; // a slider of so few stops shows each of them

} // namespace

ScrollBinder::ScrollBinder(ScrollBar &bar, EventGate &gate, QSlider *slider) : Binder(bar, gate, slider), bar_(bar), slider_(slider)
{
    slider->setOrientation(bar.vertical ? Qt::Vertical : Qt::Horizontal);
    slider->setSingleStep(bar.smallChange);
    slider->setPageStep(bar.largeChange);
    slider->setAttribute(Qt::WA_NoMousePropagation);
    QObject::connect(slider, &QSlider::valueChanged, receiver(), [this](int value) {
        LetKeysGo();
        const EventGate::Pass pass(this->gate());
        if (slider_->isSliderDown()) {
            ScrollGesture::DragTo(bar_, value);
        } else {
            ScrollGesture::MoveTo(bar_, value);
        }
    });
    QObject::connect(slider, &QSlider::sliderReleased, receiver(), [this] {
        const EventGate::Pass pass(this->gate());
        ScrollGesture::LetGo(bar_);
    });
    events_ = new WidgetEvents(slider, [this](QEvent &event) { return Look(event); });
}

// One notch of the wheel is a small step, with Ctrl or Shift a large one.
bool ScrollBinder::Look(QEvent &event)
{
    if (event.type() != QEvent::Wheel) {
        return false;
    }
    const auto &wheel = static_cast<const QWheelEvent &>(event);
    const bool large = (wheel.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    // Some systems turn the wheel sideways while a key is held.
    turned_ += wheel.angleDelta().y() != 0 ? wheel.angleDelta().y() : wheel.angleDelta().x();
    const int notches = turned_ / kNotch;
    turned_ -= notches * kNotch;
    const int step = (large ? bar_.largeChange : bar_.smallChange) * (slider_->invertedControls() ? -1 : 1);
    slider_->setValue(slider_->value() + notches * step);
    event.accept();
    return true;
}

void ScrollBinder::TakeRange()
{
    const QSignalBlocker quiet(slider_);
    slider_->setPageStep(bar_.largeChange);
    slider_->setRange(std::min(bar_.min.Get(), bar_.max.Get()), std::max(bar_.min.Get(), bar_.max.Get()));
    // Qt has the larger end at the top or at the right.
    const bool turned = bar_.vertical ? bar_.min < bar_.max : bar_.min > bar_.max;
    slider_->setInvertedAppearance(turned);
    slider_->setInvertedControls(turned);
    const int stops = slider_->maximum() - slider_->minimum();
    slider_->setTickPosition(stops > 0 && stops <= kMostMarks ? QSlider::TicksBothSides : QSlider::NoTicks);
    slider_->setTickInterval(bar_.smallChange);
    slider_->setValue(bar_.value);
}

void ScrollBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Range) {
        TakeRange();
    } else if (aspect == Aspect::Value) {
        const QSignalBlocker quiet(slider_);
        slider_->setValue(bar_.value);
    }
}

FrameBinder::FrameBinder(Frame &frame, EventGate &gate, QWidget *box) : Binder(frame, gate, box)
{
    box->setMouseTracking(true);
    box->setAttribute(Qt::WA_NoMousePropagation);
    box->lower();
    events_ = new WidgetEvents(box, [&frame, &gate](QEvent &event) {
        if (event.type() == QEvent::MouseMove && frame.MouseMove) {
            const EventGate::Pass pass(gate);
            frame.MouseMove();
        } else if (event.type() == QEvent::MouseButtonPress && frame.MouseDown) {
            const EventGate::Pass pass(gate);
            frame.MouseDown(ButtonCode(static_cast<const QMouseEvent &>(event).button()));
        }
        return false;
    });
}

KeyBinder::KeyBinder(PianoKey &key, EventGate &gate, Piano &piano)
    : Binder(key, gate, nullptr), key_(key), piano_(piano), first_(piano.KeyCount() == 0)
{
    piano.Add(key);
}

void KeyBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Place) {
        piano_.FollowPlaces();
    } else if (aspect == Aspect::Color || aspect == Aspect::Checked) {
        piano_.Redraw(key_);
    }
}

} // namespace velluto
