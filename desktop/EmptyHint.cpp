#include "desktop/EmptyHint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

namespace velluto {

namespace {

constexpr int kHintMargin = 24; // logical pixels
// How strong the letters are: as faint as they can be and still be read, on a light ground and on a dark one.
constexpr float kOnLight = 0.9F;
constexpr float kOnDark = 0.6F;

} // namespace

EmptyHint::EmptyHint(QMdiArea &area) : QWidget(area.viewport()), area_(area)
{
    setObjectName(QStringLiteral("EmptyHint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    area.viewport()->installEventFilter(this);
    setGeometry(area.viewport()->rect());
    lower();
}

bool EmptyHint::eventFilter(QObject * /*watched*/, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
        setGeometry(area_.viewport()->rect());
        break;
    case QEvent::ChildAdded:
    case QEvent::ChildRemoved:
        update();
        break;
    default:
        break;
    }
    return false;
}

void EmptyHint::paintEvent(QPaintEvent * /*event*/)
{
    if (!area_.subWindowList().isEmpty()) {
        return;
    }
    QColor ink = palette().color(QPalette::WindowText);
    const bool onDark = palette().color(QPalette::Dark).lightness() < ink.lightness();
    ink.setAlphaF(onDark ? kOnDark : kOnLight);
    QPainter painter(this);
    painter.setPen(ink);
    painter.drawText(rect().adjusted(kHintMargin, 0, -kHintMargin, 0), static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap,
                     QCoreApplication::translate("EmptyHint", "Open a file: Ctrl+A, or drop it here   ·   Sounds: View   ·   Guide: F1"));
}

} // namespace velluto
