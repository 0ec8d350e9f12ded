#include "desktop/Piano.h"

#include "desktop/Keys.h"
#include "desktop/PianoAccess.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>

namespace velluto {

namespace {

bool IsPressingKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

Piano &Piano::Of(QWidget &parent, EventGate &gate)
{
    for (QObject *child : parent.children()) {
        if (auto *piano = dynamic_cast<Piano *>(child)) {
            return *piano;
        }
    }
    InstallPianoAccess(); // first: a widget is made known as it is being made
    return *new Piano(gate, &parent);
}

Piano::Piano(EventGate &gate, QWidget *parent) : PianoKeys(parent), gate_(gate)
{
    setObjectName(QStringLiteral("Piano"));
    setAccessibleName(QCoreApplication::translate("Piano", "Keyboard"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMousePropagation);
}

Piano::~Piano()
{
    ForgetPianoAccess(*this);
}

// ---- keys

void Piano::Add(PianoKey &key)
{
    keys_.push_back(&key);
    FollowPlaces();
}

void Piano::Remove(const PianoKey &key)
{
    std::erase(keys_, &key);
    letters_.Forget();
    pressed_ = -1;
    button_ = Qt::NoButton;
    cursor_ = 0;
}

void Piano::Redraw(const PianoKey &key)
{
    const auto found = std::ranges::find(keys_, &key);
    if (found == keys_.end()) {
        return;
    }
    const int number = static_cast<int>(found - keys_.begin());
    update(RectOf(number).toAlignedRect());
    TellPianoAccess(*this, number);
}

// ---- the pointer

template <class F>
void Piano::Tell(F raise)
{
    ++telling_;
    {
        const EventGate::Pass pass(gate_);
        raise();
    }
    --telling_;
    if (lost_ && telling_ == 0) {
        lost_ = false;
        LosePointer();
    }
}

void Piano::Press(int number, int button)
{
    pressed_ = number;
    Tell([this, number, button] { Raise(KeyOf(number).MouseDown, button); });
}

void Piano::EndPress()
{
    release_.stop();
    const int number = pressed_;
    const int button = button_ == Qt::NoButton ? MouseButton::Left : ButtonCode(button_);
    pressed_ = -1;
    button_ = Qt::NoButton;
    if (number >= 0) {
        Tell([this, number, button] { Raise(KeyOf(number).MouseUp, button); });
    }
}

void Piano::PressAndRelease(int number)
{
    if (number >= 0 && number < KeyCount() && pressed_ < 0) {
        Press(number, MouseButton::Left);
        EndPress();
    }
}

void Piano::LetGoBeside(const QWidget &widget)
{
    if (auto *piano = dynamic_cast<Piano *>(widget.window()->findChild<QWidget *>(QStringLiteral("Piano")))) {
        piano->EndPress();
        piano->letters_.LetAllGo();
    }
}

void Piano::LosePointer()
{
    if (telling_ > 0) {
        lost_ = true;
        return;
    }
    EndPress();
    letters_.LetAllGo();
    Leave();
}

// A hand that moves fast is seen here and there only. The keys on the straight way between two sights are passed over in
// their order, each once.
void Piano::PassTo(const QPointF &point)
{
    const QPointF from = passed_.value_or(point);
    passed_ = point;
    const double step = KeyCount() > 0 ? RectOf(0).width() / 4 : 1; // finer than any key
    const int steps = static_cast<int>(std::ceil(std::hypot(point.x() - from.x(), point.y() - from.y()) / std::max(step, 1.0)));
    const int last = KeyAt(point);
    int before = KeyAt(from);
    for (int i = 1; i < steps; ++i) {
        const QPointF between = from + (point - from) * i / steps;
        const int number = KeyAt(between);
        if (number >= 0 && number != before && number != last) {
            PassOver(number, between);
        }
        before = number;
    }
    PassOver(last, point);
}

void Piano::PassOver(int number, const QPointF &point)
{
    if (KeyCount() == 0) {
        return; // the form has gone
    }
    overByKeys_ = false;
    if (number < 0) {
        Tell([this] { KeyOf(0).form().Form_MouseMove(); });
        return;
    }
    const PianoKey &key = KeyOf(number);
    const QRectF rect = RectOf(number);
    const int y = static_cast<int>((point.y() - rect.top()) * key.place.Get().height / rect.height());
    Tell([&key, y] { Raise(key.MouseMove, y); });
}

// Around the keys lies their frame: whoever leaves the keys passes over it, however fast.
void Piano::Leave()
{
    if (passed_ || overByKeys_) {
        passed_.reset();
        PassOver(-1, {});
    }
}

void Piano::mousePressEvent(QMouseEvent *event)
{
    const int number = KeyAt(event->position());
    if (number < 0 || pressed_ >= 0) {
        return; // one button at a time
    }
    cursor_ = number;
    cursorShown_ = false;
    button_ = event->button();
    Press(number, ButtonCode(event->button()));
}

void Piano::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == button_) {
        EndPress();
    }
}

void Piano::mouseMoveEvent(QMouseEvent *event)
{
    if (button_ != Qt::NoButton && !event->buttons().testFlag(button_)) {
        EndPress(); // the release went elsewhere
    }
    PassTo(event->position());
}

void Piano::leaveEvent(QEvent * /*event*/)
{
    Leave();
}

void Piano::hideEvent(QHideEvent * /*event*/)
{
    LosePointer();
}

bool Piano::event(QEvent *event)
{
    if (event->type() == QEvent::WindowBlocked) {
        LosePointer();
    }
    return QWidget::event(event);
}

// ---- the computer's keys

// As a pointer that comes to the key and presses it: what that means is the mode's affair.
void Piano::PressLetter(int number)
{
    if (number >= KeyCount() || number == pressed_) {
        return;
    }
    PassOver(number, RectOf(number).topLeft());
    Tell([this, number] { Raise(KeyOf(number).MouseDown, MouseButton::Left); });
}

void Piano::ReleaseLetter(int number, int held)
{
    if (number >= KeyCount() || number == pressed_) {
        return;
    }
    Tell([this, number] { Raise(KeyOf(number).MouseUp, MouseButton::Left); });
    if (held >= 0 && held < KeyCount()) {
        PassOver(held, RectOf(held).topLeft());
    } else {
        PassOver(-1, {});
    }
}

void Piano::MoveCursor(int number)
{
    cursor_ = std::clamp(number, 0, std::max(KeyCount() - 1, 0));
    cursorShown_ = true;
    update();
    TellPianoCursor(*this);
    if (KeyCount() > 0) {
        PassOver(cursor_, RectOf(cursor_).topLeft());
        overByKeys_ = true;
    }
}

void Piano::keyPressEvent(QKeyEvent *event)
{
    if (letters_.Press(*event)) {
        return;
    }
    if (IsPressingKey(event->key())) {
        if (release_.isActive()) {
            if (event->timestamp() == releasedAt_) {
                release_.stop(); // held all the while
                return;
            }
            EndPress();
        }
        if (!event->isAutoRepeat() && pressed_ < 0 && KeyCount() > 0) {
            cursorShown_ = true;
            update();
            Press(cursor_, MouseButton::Left);
        }
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        MoveCursor(cursor_ - 1);
        break;
    case Qt::Key_Right:
        MoveCursor(cursor_ + 1);
        break;
    case Qt::Key_Home:
        MoveCursor(0);
        break;
    case Qt::Key_End:
        MoveCursor(KeyCount() - 1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Piano::keyReleaseEvent(QKeyEvent *event)
{
    if (letters_.Release(*event)) {
        return;
    }
    if (!IsPressingKey(event->key())) {
        QWidget::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat() && button_ == Qt::NoButton && pressed_ >= 0) {
        // A display tells of a key that repeats as released and pressed at one moment, and Qt does not always see the two as one.
        releasedAt_ = event->timestamp();
        release_.start(kReleaseDoubt, Qt::PreciseTimer, this);
    }
}

void Piano::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == release_.timerId()) {
        EndPress();
    } else {
        QWidget::timerEvent(event);
    }
}

void Piano::focusInEvent(QFocusEvent *event)
{
    cursorShown_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    update();
}

void Piano::focusOutEvent(QFocusEvent * /*event*/)
{
    letters_.LetAllGo();
    if (button_ == Qt::NoButton) {
        EndPress();
    }
    if (overByKeys_) {
        Leave();
    }
    cursorShown_ = false;
    update();
}

} // namespace velluto
