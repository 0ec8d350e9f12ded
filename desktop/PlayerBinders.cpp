#include "desktop/PlayerBinders.h"

#include "desktop/Edges.h"
#include "desktop/QtText.h"
#include "desktop/Twips.h"
#include "desktop/WindowAccess.h"
#include "view/Gestures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>
#include <cmath>

namespace velluto {

namespace {

// The pictures lie in a square of this side; they are scaled to the button.
constexpr qreal kSide = 16;

void AddRight(QPainterPath &path, qreal left, qreal right)
{
    path.addPolygon(QPolygonF({{left, 2}, {right, kSide / 2}, {left, kSide - 2}, {left, 2}}));
}

void AddLeft(QPainterPath &path, qreal left, qreal right)
{
    path.addPolygon(QPolygonF({{right, 2}, {left, kSide / 2}, {right, kSide - 2}, {right, 2}}));
}

QPainterPath PathOf(Glyph glyph)
{
    constexpr qreal kHeight = kSide - 4;
    QPainterPath path;
    switch (glyph) {
    case Glyph::Previous:
        path.addRect(2, 2, 2.5, kHeight);
        AddLeft(path, 5, 14);
        break;
    case Glyph::Next:
        AddRight(path, 2, 11);
        path.addRect(11.5, 2, 2.5, kHeight);
        break;
    case Glyph::Play:
        AddRight(path, 3.5, 14);
        break;
    case Glyph::Pause:
        path.addRect(3.5, 2, 3, kHeight);
        path.addRect(9.5, 2, 3, kHeight);
        break;
    case Glyph::Back:
        AddLeft(path, 0.5, 8);
        AddLeft(path, 7.5, 15);
        break;
    case Glyph::Forward:
        AddRight(path, 1, 8.5);
        AddRight(path, 8, 15.5);
        break;
    case Glyph::Stop:
        path.addRect(2.5, 2.5, kSide - 5, kSide - 5);
        break;
    case Glyph::None:
        break;
    }
    return path;
}

class MarkerView : public QWidget {
public:
    MarkerView(bool endsSection, QWidget *parent) : QWidget(parent), endsSection_(endsSection)
    {
        setCursor(Qt::SizeHorCursor);
        setMouseTracking(true);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(isEnabled() ? MarkColour(palette()) : palette().color(QPalette::Mid));
        const QRectF area(rect());
        painter.drawPolygon(QPolygonF({area.topLeft(), area.topRight(), endsSection_ ? area.bottomLeft() : area.bottomRight()}));
    }

private:
    bool endsSection_;
};

class LineView : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).fillRect(rect(), MarkColour(palette())); }
};

} // namespace

void PictureButton::SetLamp(const QColor &color)
{
    lamp_ = color;
    update();
}

void PictureButton::paintEvent(QPaintEvent *event)
{
    if (glyph_ == Glyph::None) {
        FittedButton::paintEvent(event);
    } else {
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        QStylePainter painter(this);
        painter.drawControl(QStyle::CE_PushButton, option);
        DrawPicture(painter);
    }
    if (lamp_.isValid()) {
        constexpr int kHeight = 4;
        constexpr int kInset = 5;
        QPainter(this).fillRect(QRect(kInset, height() - kHeight - kInset, width() - 2 * kInset, kHeight), lamp_);
    }
}

void PictureButton::DrawPicture(QPainter &painter) const
{
    constexpr qreal kShare = 0.5; // of the button
    const qreal side = std::min(width(), height()) * kShare;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center() - QPointF(side, side) / 2);
    painter.scale(side / kSide, side / kSide);
    painter.fillPath(PathOf(glyph_), palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
}

ToggleBinder::ToggleBinder(Button &button, EventGate &gate, PictureButton *drawn)
    : ButtonBinder(button, gate, drawn), toggle_(button), drawn_(drawn)
{
    drawn->setCheckable(button.isToggle);
}

void ToggleBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Color) {
        const bool on = toggle_.color != Button::kPlainColor;
        drawn_->SetLamp(on ? QColor::fromRgb(static_cast<QRgb>(toggle_.color.Get())) : QColor());
        drawn_->setChecked(on && toggle_.isToggle);
    } else {
        ButtonBinder::Show(aspect);
    }
}

MarkerBinder::MarkerBinder(Marker &marker, EventGate &gate, QWidget *parent)
    : Binder(marker, gate, new MarkerView(marker.endsSection, parent)), marker_(marker)
{
    widget()->setAttribute(Qt::WA_NoMousePropagation);
    events_ = new WidgetEvents(widget(), [this](QEvent &event) { return Look(event); });
}

MarkerBinder::~MarkerBinder()
{
    events_->Stop();
}

void MarkerBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Place) {
        const Place place = marker_.place;
        const int half = place.width / 2;
        widget()->setGeometry(ToPixels(Place{place.left + (marker_.endsSection ? half : 0), place.top, half, place.height}));
    } else if (aspect == Aspect::Enabled && !marker_.enabled) {
        LetGo(); // no release will come
    }
}

bool MarkerBinder::Look(QEvent &event)
{
    if (marker_.slider == nullptr) {
        return false;
    }
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        Take(static_cast<const QMouseEvent &>(event));
        return true;
    case QEvent::MouseMove:
        DragTo(static_cast<const QMouseEvent &>(event));
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<const QMouseEvent &>(event).button() == Qt::LeftButton) {
            LetGo();
        }
        return true;
    default:
        return false;
    }
}

void MarkerBinder::Take(const QMouseEvent &event)
{
    if (event.button() == Qt::LeftButton) {
        held_ = true;
        takenAt_ = event.globalPosition().x();
        takenValue_ = marker_.slider->value;
    }
}

// The marker goes where the hand goes: from where it was taken, not from where it stands.
void MarkerBinder::DragTo(const QMouseEvent &event)
{
    const int travel = ToPixels(marker_.travel);
    if (!event.buttons().testFlag(Qt::LeftButton)) { // the release got lost
        LetGo();
    }
    if (!held_ || travel <= 0) {
        return;
    }
    ScrollBar &slider = *marker_.slider;
    const double moved = (event.globalPosition().x() - takenAt_) / travel * (slider.max - slider.min);
    const EventGate::Pass pass(gate());
    ScrollGesture::DragTo(slider, takenValue_ + static_cast<int>(std::lround(moved)));
}

void MarkerBinder::LetGo()
{
    if (held_) {
        held_ = false;
        const EventGate::Pass pass(gate());
        ScrollGesture::LetGo(*marker_.slider);
    }
}

ScaleLineBinder::ScaleLineBinder(Line &line, EventGate &gate, QWidget *parent)
    : Binder(line, gate, new LineView(parent)), line_(line), drawn_(widget())
{
    // The bar below it stands out from the window, in a dark one too.
    parent->setBackgroundRole(QPalette::Base);
    parent->setAutoFillBackground(true);
}

void ScaleLineBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Place) {
        constexpr int kWidth = 2;
        const Place place = line_.place;
        drawn_->setGeometry(ToPixels(place.left) - kWidth / 2, 1, kWidth, ToPixels(place.height) - 2);
    }
}

DriveBinder::DriveBinder(DriveList &drives, EventGate &gate, QComboBox *drawn) : Binder(drives, gate, drawn), drives_(drives), drawn_(drawn)
{
    drawn->setFocusPolicy(Qt::StrongFocus);
    drawn->setAttribute(Qt::WA_NoMousePropagation);
    QObject::connect(drawn, &QComboBox::activated, receiver(), [&drives, &gate](int row) {
        const EventGate::Pass pass(gate);
        drives.Choose(row);
    });
    // A wheel turned in passing leads nowhere.
    events_ = new WidgetEvents(drawn, [drawn](const QEvent &event) { return event.type() == QEvent::Wheel && !drawn->hasFocus(); });
}

void DriveBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Caption) {
        NameCombo(*drawn_, AccessibleNameOf(drives_));
    }
    if (aspect == Aspect::Rows) {
        drawn_->clear();
        for (const std::string &path : drives_.rows) {
            drawn_->addItem(FromUtf8(path));
        }
    }
    if (aspect == Aspect::Rows || aspect == Aspect::Current) {
        drawn_->setCurrentIndex(drives_.ListIndex);
    }
}

} // namespace velluto
