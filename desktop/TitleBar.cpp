#include "desktop/TitleBar.h"

#include <QFontMetrics>

#include <array>

namespace velluto {

namespace {

constexpr double kGlyph = 4.0; // half the side of a button's drawing, logical pixels
constexpr double kPen = 1.3;
constexpr int kIconSide = 16;
constexpr int kIconGap = 4;

QColor Mix(const QColor &one, const QColor &other, float share)
{
    return QColor::fromRgbF(one.redF() * (1 - share) + other.redF() * share, one.greenF() * (1 - share) + other.greenF() * share,
                            one.blueF() * (1 - share) + other.blueF() * share);
}

QColor BackOf(const QStyleOption &option)
{
    const QPalette &palette = option.palette;
    if (option.state.testFlag(QStyle::State_Active)) {
        return palette.color(QPalette::Active, QPalette::Highlight);
    }
    return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.14F);
}

QColor InkOf(const QStyleOption &option)
{
    const QPalette &palette = option.palette;
    if (option.state.testFlag(QStyle::State_Active)) {
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    }
    return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.25F);
}

void DrawClose(QPainter &painter, const QPointF &c)
{
    painter.drawLine(c + QPointF(-kGlyph, -kGlyph), c + QPointF(kGlyph, kGlyph));
    painter.drawLine(c + QPointF(-kGlyph, kGlyph), c + QPointF(kGlyph, -kGlyph));
}

void DrawMaximise(QPainter &painter, const QPointF &c)
{
    painter.drawRect(QRectF(c.x() - kGlyph, c.y() - kGlyph, 2 * kGlyph, 2 * kGlyph));
    painter.drawLine(c + QPointF(-kGlyph, -kGlyph + 1), c + QPointF(kGlyph, -kGlyph + 1));
}

void DrawMinimise(QPainter &painter, const QPointF &c)
{
    painter.drawLine(c + QPointF(-kGlyph, kGlyph - 1), c + QPointF(kGlyph, kGlyph - 1));
}

void DrawRestore(QPainter &painter, const QPointF &c)
{
    painter.drawRect(QRectF(c.x() - kGlyph, c.y() - kGlyph + 2, 2 * kGlyph - 2, 2 * kGlyph - 2));
    painter.drawPolyline(QPolygonF({c + QPointF(-kGlyph + 2, -kGlyph + 1), c + QPointF(-kGlyph + 2, -kGlyph), c + QPointF(kGlyph, -kGlyph),
                                    c + QPointF(kGlyph, kGlyph - 2), c + QPointF(kGlyph - 1, kGlyph - 2)}));
}

using DrawGlyph = void (*)(QPainter &, const QPointF &);

struct ButtonState {
    bool pointedAt = false;
    bool pressed = false;
};

ButtonState StateOf(const QStyleOptionComplex &option, QStyle::SubControl button)
{
    const bool here = (option.activeSubControls & button) != 0U;
    return {here && option.state.testFlag(QStyle::State_MouseOver), here && option.state.testFlag(QStyle::State_Sunken)};
}

void DrawButton(QPainter &painter, const QRect &place, const ButtonState &state, const QColor &ink, DrawGlyph glyph)
{
    if (state.pointedAt || state.pressed) {
        QColor lit = ink;
        lit.setAlphaF(state.pressed ? 0.35F : 0.2F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(lit);
        painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
    QPen pen(ink, kPen);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    // On the middle of a pixel the lines are sharp.
    const QPoint middle = place.center();
    glyph(painter, QPointF(middle.x() + 0.5, middle.y() + 0.5));
}

void DrawButtons(QPainter &painter, const QStyleOptionTitleBar &bar, const QStyle &style, const QWidget *widget)
{
    const bool minimised = (bar.titleBarState & Qt::WindowMinimized) != 0;
    const bool maximised = (bar.titleBarState & Qt::WindowMaximized) != 0;
    struct Drawn {
        QStyle::SubControl button;
        DrawGlyph glyph;
        bool wanted;
    };
    const std::array<Drawn, 4> buttons = {{
        {QStyle::SC_TitleBarCloseButton, DrawClose, bar.titleBarFlags.testFlag(Qt::WindowSystemMenuHint)},
        {QStyle::SC_TitleBarMaxButton, DrawMaximise, !maximised && bar.titleBarFlags.testFlag(Qt::WindowMaximizeButtonHint)},
        {QStyle::SC_TitleBarMinButton, DrawMinimise, !minimised && bar.titleBarFlags.testFlag(Qt::WindowMinimizeButtonHint)},
        {QStyle::SC_TitleBarNormalButton, DrawRestore, minimised || maximised},
    }};
    for (const Drawn &drawn : buttons) {
        const QRect place = style.subControlRect(QStyle::CC_TitleBar, &bar, drawn.button, widget);
        if (drawn.wanted && place.isValid() && (bar.subControls & drawn.button) != 0U) {
            DrawButton(painter, place, StateOf(bar, drawn.button), InkOf(bar), drawn.glyph);
        }
    }
}

} // namespace

void DrawMenuBarButtons(QPainter &painter, const QStyleOptionComplex &option, const QStyle &style, const QWidget *widget)
{
    struct Drawn {
        QStyle::SubControl button;
        DrawGlyph glyph;
    };
    const std::array<Drawn, 3> buttons = {
        {{QStyle::SC_MdiMinButton, DrawMinimise}, {QStyle::SC_MdiNormalButton, DrawRestore}, {QStyle::SC_MdiCloseButton, DrawClose}}};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Drawn &drawn : buttons) {
        if ((option.subControls & drawn.button) != 0U) {
            const QRect place = style.subControlRect(QStyle::CC_MdiControls, &option, drawn.button, widget);
            DrawButton(painter, place, StateOf(option, drawn.button), option.palette.color(QPalette::WindowText), drawn.glyph);
        }
    }
    painter.restore();
}

void DrawWindowFrame(QPainter &painter, const QStyleOption &option)
{
    const QColor edge = option.state.testFlag(QStyle::State_Active) ? BackOf(option)
                                                                    : Mix(BackOf(option), option.palette.color(QPalette::WindowText), 0.2F);
    painter.fillRect(option.rect, edge);
    painter.fillRect(option.rect.adjusted(1, 1, -1, -1), option.palette.color(QPalette::Window));
}

void DrawTitleBar(QPainter &painter, const QStyleOptionTitleBar &option, const QStyle &style, const QWidget *widget)
{
    QStyleOptionTitleBar bar(option);
    if (widget != nullptr) { // after a change of theme the option still has the colours of the one before
        bar.palette = widget->palette();
    }
    painter.save();
    painter.fillRect(bar.rect, BackOf(bar));
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect icon = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarSysMenu, widget);
    if (icon.isValid() && !bar.icon.isNull()) {
        QRect side(0, 0, kIconSide, kIconSide);
        side.moveCenter(icon.center());
        bar.icon.paint(&painter, side);
    }
    const QRect text =
        style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, widget).adjusted(kIconGap, 0, -kIconGap, 0);
    painter.setPen(InkOf(bar));
    painter.drawText(text, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, text.width()));
    DrawButtons(painter, bar, style, widget);
    painter.restore();
}

} // namespace velluto
