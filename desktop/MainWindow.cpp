#include "desktop/MainWindow.h"

#include "desktop/FindStrip.h"
#include "desktop/QtText.h"
#include "desktop/Twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QRegion>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace velluto {

namespace {

// Milliseconds. A window manager answers a first placement, or moves the frame on its way to another state, well
// within these; what still stands after them the user has done.
constexpr int kSettleTime = 250;
constexpr int kGeometryDelay = 120;

constexpr QSize kSmallest(320, 200);
constexpr QSize kUsualSize(960, 660);
constexpr double kUsualShare = 0.8; // of the screen
constexpr QSize kAround(8, 40);     // what a window manager puts around a window, logical pixels

// The strip below the children, with a fine line above it.
class StatusStrip : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, width(), 1), palette().color(QPalette::Mid));
    }
};

// Where a frame is shown that was never placed: in the middle of the main screen, with some room around it.
QRect UsualRect()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect room = screen != nullptr ? screen->availableGeometry() : QRect(QPoint(), kUsualSize);
    QRect rect(QPoint(), room.size() * kUsualShare);
    rect.moveCenter(room.center());
    return rect;
}

// The rectangle itself where the screens show all of it, else one that lies whole on the screen which shows most of it: as large, or as
// large as there is room for.
QRect OntoScreen(const QRect &rect)
{
    const auto shownOn = [&rect](const QScreen *screen) {
        const QRect shown = screen->availableGeometry() & rect;
        return shown.isEmpty() ? 0 : shown.width() * shown.height();
    };
    QRegion hidden(rect);
    const QScreen *best = QGuiApplication::primaryScreen();
    for (const QScreen *screen : QGuiApplication::screens()) {
        hidden -= screen->availableGeometry();
        best = shownOn(screen) > shownOn(best) ? screen : best;
    }
    if (hidden.isEmpty() || best == nullptr) {
        return rect;
    }
    const QRect room(best->availableGeometry().topLeft(), best->availableGeometry().size() - kAround);
    const QSize size = rect.size().boundedTo(room.size());
    return {QPoint(std::clamp(rect.left(), room.left(), room.right() + 1 - size.width()),
                   std::clamp(rect.top(), room.top(), room.bottom() + 1 - size.height())),
            size};
}

} // namespace

MainWindow::MainWindow(frmMain &frame, ChildWindows &children, EventGate &gate, std::function<bool()> close)
    : frame_(frame), children_(children), gate_(gate), close_(std::move(close)), area_(new ChildArea(this))
{
    setObjectName(FromUtf8(frame.FullName()));
    setWindowTitle(AsTitle(frame.caption.Get()));
    setMinimumSize(kSmallest);
    menus_ = std::make_unique<MenuBinder>(frame, children, gate, *this);
    MakeStatusBar();
    auto *inside = new QWidget(this);
    auto *layout = new QVBoxLayout(inside);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(area_);
    layout->addWidget(statusBar_);
    setCentralWidget(inside);
    InstallFind(*this, *area_, gate_);
    area_->setFocusPolicy(Qt::NoFocus);
    frame.observer = [this](Aspect aspect) { Follow(aspect); };
    connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) { NoteActivation(window); });
    geometryTimer_.setSingleShot(true);
    geometryTimer_.setInterval(kGeometryDelay);
    connect(&geometryTimer_, &QTimer::timeout, this, [this] { NoteGeometry(); });
}

MainWindow::~MainWindow()
{
    Release();
}

void MainWindow::Release()
{
    if (menus_ == nullptr) {
        return;
    }
    frame_.observer = nullptr;
    frame_.Picture1.observer = nullptr;
    binders_.clear();
    menus_.reset();
    geometryTimer_.stop();
    for (ChildWindow *window : windows_) {
        window->Detach();
    }
    // Qt tells of windows coming and going until the last of them is gone.
    disconnect(area_, nullptr, this, nullptr);
}

void MainWindow::MakeStatusBar()
{
    statusBar_ = new StatusStrip(this);
    statusBar_->setObjectName(QStringLiteral("Picture1"));
    statusBar_->setAccessibleName(QCoreApplication::translate("StatusStrip", "Status bar"));
    const auto follow = [this](Aspect /*aspect*/) {
        statusBar_->setVisible(frame_.Picture1.visible);
        statusBar_->setFixedHeight(std::max(ToPixels(frame_.Picture1.place.Get().height), 1));
    };
    follow(Aspect::Visible);
    frame_.Picture1.observer = follow;
    const std::array<Control *, 4> kept = {&frame_.LabelNomeAppl, &frame_.LabelData, &frame_.LabelTime, &frame_.TimerOrologio};
    for (Control *control : kept) {
        binders_.push_back(MakeBinder(*control, statusBar_, gate_));
        binders_.back()->Start();
    }
}

void MainWindow::Follow(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Caption:
        setWindowTitle(AsTitle(frame_.caption.Get()));
        break;
    case Aspect::Place:
        if (!applying_) {
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

// ---- place and state

void MainWindow::ApplyPlace()
{
    const Place place = frame_.place;
    const bool everPlaced = place.width > 0 && place.height > 0;
    const QRect asked(QPoint(ToPixels(place.left), ToPixels(place.top)), ToPixels(Size{place.width, place.height}).expandedTo(kSmallest));
    const QRect target = everPlaced ? OntoScreen(asked) : UsualRect();
    shown_ = target;
    if (ToWindowState(windowState()) == WindowState::Normal) {
        resize(target.size());
        move(target.topLeft());
    }
}

void MainWindow::ApplyState()
{
    if (ToWindowState(windowState()) == frame_.windowState) {
        return;
    }
    const QScopedValueRollback guard(applying_, true);
    switch (frame_.windowState) {
    case WindowState::Minimised:
        setWindowState(windowState() | Qt::WindowMinimized);
        break;
    case WindowState::Maximised:
        setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowMaximized);
        break;
    case WindowState::Normal:
        setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
        break;
    }
}

void MainWindow::ShowFrame()
{
    ApplyPlace();
    ApplyState();
    show();
    TellWidth();
    QTimer::singleShot(kSettleTime, this, [this] {
        settled_ = true;
        // What the window manager made of the first placement is not the user's doing.
        if (ToWindowState(windowState()) == WindowState::Normal) {
            shown_ = QRect(pos(), size());
        }
    });
}

void MainWindow::NoteState()
{
    if (applying_ || menus_ == nullptr || ToWindowState(windowState()) == frame_.windowState) {
        return;
    }
    const EventGate::Pass pass(gate_);
    frame_.windowState = ToWindowState(windowState());
}

void MainWindow::NoteGeometry()
{
    geometryTimer_.stop();
    const QRect now(pos(), size());
    if (!settled_ || menus_ == nullptr || ToWindowState(windowState()) != WindowState::Normal || now == shown_) {
        return;
    }
    const EventGate::Pass pass(gate_);
    const QScopedValueRollback guard(applying_, true);
    Place place = frame_.place;
    if (now.topLeft() != shown_.topLeft()) {
        place.left = ToTwips(now.left());
        place.top = ToTwips(now.top());
    }
    if (now.size() != shown_.size()) {
        place.width = ToTwips(now.width());
        place.height = ToTwips(now.height());
    }
    shown_ = now;
    frame_.place = place;
}

// The status bar is laid out for the width that is really there, in every state.
void MainWindow::TellWidth()
{
    const int width = ToTwips(this->width());
    if (menus_ != nullptr && frame_.shownWidth != width && frame_.IsLoaded()) {
        frame_.shownWidth = width;
        const EventGate::Pass pass(gate_);
        frame_.Form_Resize();
    }
}

void MainWindow::moveEvent(QMoveEvent *event)
{
    QMainWindow::moveEvent(event);
    geometryTimer_.start();
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    TellWidth();
    geometryTimer_.start();
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        NoteState();
        geometryTimer_.start();
    }
}

bool MainWindow::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    // Gone to another program: a box or a dialog of our own is no such thing.
    if (event->type() == QEvent::WindowDeactivate && menus_ != nullptr && !gate_.Busy() && QApplication::activeModalWidget() == nullptr) {
        const EventGate::Pass pass(gate_);
        children_.FrameDeactivated();
    }
    return handled;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (menus_ == nullptr) {
        event->accept();
        return;
    }
    if (geometryTimer_.isActive()) {
        NoteGeometry();
    }
    event->ignore();
    // A handler that still waits somewhere keeps the frame.
    if (!gate_.Busy()) {
        const EventGate::Pass pass(gate_);
        event->setAccepted(close_());
    }
}

// ---- children

ChildWindow *MainWindow::WindowOf(const Form &form) const
{
    const auto found = std::ranges::find_if(windows_, [&form](const ChildWindow *window) { return window->form() == &form; });
    return found != windows_.end() ? *found : nullptr;
}

void MainWindow::ShowChild(Form &form)
{
    const QScopedValueRollback guard(arranging_, true);
    area_->ScrollHome();
    windows_.push_back(new ChildWindow(form, children_, gate_, *area_));
}

void MainWindow::CloseChild(Form &form)
{
    ChildWindow *window = WindowOf(form);
    if (window == nullptr) {
        return;
    }
    const QScopedValueRollback guard(arranging_, true);
    std::erase(windows_, window);
    window->Detach();
    window->hide();
    area_->removeSubWindow(window);
    // One of its own events may be under way.
    window->deleteLater();
}

void MainWindow::ActivateChild(Form *form)
{
    ChildWindow *window = form != nullptr ? WindowOf(*form) : nullptr;
    if (window != nullptr) {
        const QScopedValueRollback guard(arranging_, true);
        area_->setActiveSubWindow(window);
    }
}

void MainWindow::NoteActivation(QMdiSubWindow *window)
{
    const auto *child = dynamic_cast<ChildWindow *>(window);
    if (arranging_ || child == nullptr || child->form() == nullptr) {
        return;
    }
    const EventGate::Pass pass(gate_);
    children_.Activate(*child->form());
}

} // namespace velluto
