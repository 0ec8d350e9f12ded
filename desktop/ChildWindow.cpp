#include "desktop/ChildWindow.h"

#include "desktop/QtText.h"
#include "desktop/Twips.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>

namespace velluto {

namespace {

// So much of a title bar has to be in view for a hand to take hold of it, logical pixels.
constexpr int kGrip = 48;

// Moves the rectangle into the room where too little of its top edge lies in it.
QRect IntoView(QRect rect, const QSize &room, int title)
{
    const bool across = rect.right() >= kGrip && rect.left() <= room.width() - kGrip;
    const bool down = rect.top() >= 0 && rect.top() <= room.height() - title;
    if (!across) {
        rect.moveLeft(std::clamp(rect.left(), 0, std::max(room.width() - rect.width(), 0)));
    }
    if (!down) {
        rect.moveTop(std::clamp(rect.top(), 0, std::max(room.height() - rect.height(), 0)));
    }
    return rect;
}

} // namespace

WindowState ToWindowState(Qt::WindowStates states)
{
    if (states.testFlag(Qt::WindowMinimized)) {
        return WindowState::Minimised;
    }
    return states.testFlag(Qt::WindowMaximized) ? WindowState::Maximised : WindowState::Normal;
}

QSize ChildWindow::FrameSize()
{
    const QStyle *style = QApplication::style();
    const int border = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {2 * border, style->pixelMetric(QStyle::PM_TitleBarHeight) + border};
}

ChildWindow::ChildWindow(Form &form, ChildWindows &children, EventGate &gate, ChildArea &area)
    : form_(&form), children_(children), gate_(gate), area_(area), surface_(new FormSurface(form, gate, this))
{
    setObjectName(FromUtf8(form.FullName()));
    setWidget(surface_);
    setWindowTitle(AsTitle(form.caption.Get()));
    // The program keeps no window above the others. Qt shows what is only hidden again, and its icons are black on a dark menu.
    for (QAction *action : systemMenu()->actions()) {
        action->setIconVisibleInMenu(false);
        if (action->isCheckable()) {
            systemMenu()->removeAction(action);
        }
    }
    form.observer = [this](Aspect aspect) { Follow(aspect); };
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates /*before*/, Qt::WindowStates now) { NoteState(now); });
    area.addSubWindow(this);
    ApplyPlace();
    show();
    ApplyState();
    applying_ = false;
}

void ChildWindow::Detach()
{
    if (form_ != nullptr) {
        form_->observer = nullptr;
        form_ = nullptr;
        surface_->Detach();
        disconnect(this, &QMdiSubWindow::windowStateChanged, this, nullptr);
    }
}

void ChildWindow::Follow(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Caption:
        setWindowTitle(AsTitle(form_->caption.Get()));
        break;
    case Aspect::Place:
        if (!noting_) {
            ApplyPlace();
        }
        break;
    case Aspect::State:
        ApplyState();
        break;
    default:
        break;
    }
}

QRect ChildWindow::Target() const
{
    const Place place = form_->place;
    const QRect asked(QPoint(ToPixels(place.left), ToPixels(place.top)), ToPixels(Size{place.width, place.height}));
    const QRect drawn = IntoView(asked.translated(area_.Offset()), area_.viewport()->size(), FrameSize().height());
    return drawn.translated(-area_.Offset());
}

void ChildWindow::ApplyPlace()
{
    if (form_ == nullptr || !IsNormal()) {
        return;
    }
    const QScopedValueRollback guard(applying_, true);
    shown_ = Target();
    setGeometry(shown_.translated(area_.Offset()));
    shown_.setSize(size());
}

void ChildWindow::ApplyState()
{
    if (ToWindowState(windowState()) == form_->windowState) {
        return;
    }
    {
        const QScopedValueRollback guard(applying_, true);
        switch (form_->windowState) {
        case WindowState::Minimised:
            showMinimized();
            break;
        case WindowState::Maximised:
            showMaximized();
            break;
        case WindowState::Normal:
            showNormal();
            break;
        }
    }
    ApplyPlace();
}

void ChildWindow::NoteState(Qt::WindowStates states)
{
    if (form_ == nullptr || applying_ || ToWindowState(states) == form_->windowState) {
        return;
    }
    const EventGate::Pass pass(gate_);
    switch (ToWindowState(states)) {
    case WindowState::Minimised:
        children_.Minimise(*form_);
        break;
    case WindowState::Maximised:
        children_.Maximise(*form_);
        break;
    case WindowState::Normal:
        children_.Restore(*form_);
        break;
    }
    ApplyPlace();
}

void ChildWindow::NoteGeometry()
{
    // On its way from one state to another the window passes through sizes that are nobody's wish.
    const bool settled = IsNormal() && !isShaded() && form_ != nullptr && form_->windowState == WindowState::Normal;
    if (!settled || applying_ || noting_ || area_.IsScrolling()) {
        return;
    }
    const QRect now = geometry().translated(-area_.Offset());
    if (now == shown_) {
        return;
    }
    const EventGate::Pass pass(gate_);
    const QRect before = shown_;
    shown_ = now;
    {
        const QScopedValueRollback guard(noting_, true);
        // An edge that the user has left alone keeps its place to the last twip.
        if (now.topLeft() != before.topLeft()) {
            const int left = ToPixels(form_->Left()) == now.left() ? form_->Left() : ToTwips(now.left());
            const int top = ToPixels(form_->Top()) == now.top() ? form_->Top() : ToTwips(now.top());
            children_.Move(*form_, left, top);
        }
        if (now.size() != before.size()) {
            const int width = now.width() == before.width() ? form_->Width() : ToTwips(now.width());
            const int height = now.height() == before.height() ? form_->Height() : ToTwips(now.height());
            children_.Resize(*form_, width, height);
        }
    }
    KeepOppositeEdge(before, now);
}

// The form may have given itself another size than the hand did. An edge that was drawn too far inwards stops there,
// and the opposite edge stays where it was.
void ChildWindow::KeepOppositeEdge(const QRect &before, const QRect &now)
{
    if (form_ == nullptr) {
        return;
    }
    const QSize size = ToPixels(Size{form_->Width(), form_->Height()});
    if (size == now.size()) {
        return;
    }
    const bool fromLeft = now.left() != before.left() && now.right() == before.right();
    const bool fromTop = now.top() != before.top() && now.bottom() == before.bottom();
    if (fromLeft || fromTop) {
        const int left = fromLeft ? ToTwips(before.right() + 1 - size.width()) : form_->Left();
        const int top = fromTop ? ToTwips(before.bottom() + 1 - size.height()) : form_->Top();
        children_.Move(*form_, left, top);
    }
    ApplyPlace();
}

void ChildWindow::moveEvent(QMoveEvent *event)
{
    QMdiSubWindow::moveEvent(event);
    NoteGeometry();
}

void ChildWindow::resizeEvent(QResizeEvent *event)
{
    QMdiSubWindow::resizeEvent(event);
    NoteGeometry();
    if (form_ != nullptr && isMaximized()) {
        form_->maximisedInside = Size{ToTwips(width()), ToTwips(height())};
    }
    // A maximised window follows the frame; its form lays itself out for the room there is.
    if (form_ != nullptr && !applying_ && isMaximized() && form_->windowState == WindowState::Maximised) {
        const EventGate::Pass pass(gate_);
        form_->Form_Resize();
    }
}

// Qt paints the frame and the title of an idle window anew only when it must; other colours are a reason too.
void ChildWindow::changeEvent(QEvent *event)
{
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        update();
    }
}

void ChildWindow::closeEvent(QCloseEvent *event)
{
    if (form_ == nullptr) {
        event->accept();
        return;
    }
    // The form closes itself, or refuses.
    event->ignore();
    const EventGate::Pass pass(gate_);
    children_.Unload(*form_);
}

} // namespace velluto
