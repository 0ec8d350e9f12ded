#include "desktop/Look.h"

#include "desktop/Edges.h"
#include "desktop/Icon.h"
#include "desktop/Start.h"
#include "desktop/TitleBar.h"
#include "desktop/WidgetEvents.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace velluto {

namespace {

// Logical pixels. Small enough for a window of sixteen rows to stay within its usual height.
constexpr int kTitleBarHeight = 24;
constexpr int kFrameWidth = 4;

constexpr QRgb kStockHighlight = qRgb(48, 140, 198);

struct Colours {
    const char *window;
    const char *windowText;
    const char *base;
    const char *alternate;
    const char *button;
    const char *light;
    const char *midlight;
    const char *mid;
    const char *dark;
    const char *shadow;
    const char *highlight;
    const char *idleHighlight;
    const char *idleHighlightedText;
    const char *disabled;
    const char *link;
};

constexpr Colours kLight{"#f0eeec", "#1c1b1a", "#ffffff", "#f6f5f3", "#f3f1ef", "#ffffff", "#dedbd8", "#bdb9b5",
                         "#9b9793", "#6f6b68", "#8e2446", "#d8c3ca", "#1c1b1a", "#94908d", "#7a1f3d"};
constexpr Colours kDark{"#2b292a", "#ece8e6", "#1e1c1d", "#252324", "#383536", "#4c484a", "#423f40", "#4d494b",
                        "#1a1819", "#0e0d0d", "#a8325a", "#57404a", "#ece8e6", "#7d7879", "#e58aa6"};

QPalette MakePalette(const Colours &colours)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(colours.window));
    palette.setColor(QPalette::Base, QColor(colours.base));
    palette.setColor(QPalette::AlternateBase, QColor(colours.alternate));
    palette.setColor(QPalette::Button, QColor(colours.button));
    palette.setColor(QPalette::Light, QColor(colours.light));
    palette.setColor(QPalette::Midlight, QColor(colours.midlight));
    palette.setColor(QPalette::Mid, QColor(colours.mid));
    palette.setColor(QPalette::Dark, QColor(colours.dark));
    palette.setColor(QPalette::Shadow, QColor(colours.shadow));
    palette.setColor(QPalette::ToolTipBase, QColor(colours.base));
    palette.setColor(QPalette::Link, QColor(colours.link));
    palette.setColor(QPalette::LinkVisited, QColor(colours.link));
    palette.setColor(QPalette::BrightText, Qt::white);
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(text, QColor(colours.windowText));
        palette.setColor(QPalette::Disabled, text, QColor(colours.disabled));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(colours.disabled));
    palette.setColor(QPalette::Highlight, QColor(colours.highlight));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(colours.idleHighlight));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(colours.idleHighlightedText));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colours.idleHighlight));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor(colours.disabled));
    return palette;
}

void DrawMenuMark(QPainter &painter, const QStyleOption &option)
{
    const bool pointedAt = option.state.testFlag(QStyle::State_Selected);
    const QPointF middle = QRectF(option.rect).center();
    QPen pen(option.palette.color(pointedAt ? QPalette::HighlightedText : QPalette::Text), 1.6);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    const std::array<QPointF, 3> mark = {middle + QPointF(-4, 0.5), middle + QPointF(-1.2, 3.5), middle + QPointF(4, -3.5)};
    painter.drawPolyline(mark.data(), static_cast<int>(mark.size()));
    painter.restore();
}

} // namespace

Look::Look() : QProxyStyle(QStringLiteral("fusion")) {}

// A tip stays for a moment after the pointer has left what it is about, and would swallow a click on what lies under it.
void Look::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (widget->windowType() == Qt::ToolTip) {
        new WidgetEvents(widget, [widget](const QEvent &event) {
            if (event.type() == QEvent::Enter) {
                widget->hide();
            }
            return false;
        });
    }
}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    if (element == PE_IndicatorCheckBox && qobject_cast<const QMenu *>(widget) != nullptr) {
        if (option->state.testFlag(State_On)) {
            DrawMenuMark(*painter, *option);
        }
        return;
    }
    if (element == PE_PanelMenu) {
        painter->fillRect(option->rect, option->palette.color(QPalette::Mid));
        painter->fillRect(option->rect.adjusted(1, 1, -1, -1), option->palette.color(QPalette::Window));
        return;
    }
    if (element == PE_FrameWindow) {
        DrawWindowFrame(*painter, *option);
        return;
    }
    if (element == PE_FrameGroupBox) {
        constexpr int kBelowWords = 3; // where the style's own begins, and what it holds is laid out for
        const int words = std::max(proxy()->pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height());
        DrawEdge(*painter, option->rect.adjusted(0, words + kBelowWords, 0, 0), LineColour(option->palette), EdgeShape::Rounded);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const QColor line = LineColour(option->palette, option->state.testFlag(State_Enabled));
    switch (element) {
    case PE_IndicatorRadioButton:
    case PE_IndicatorCheckBox:
    case PE_PanelButtonCommand:
    case PE_Frame:
        DrawEdge(*painter, option->rect, ShowsFocus(*option) ? MarkColour(option->palette) : line,
                 element == PE_IndicatorRadioButton ? EdgeShape::Round : EdgeShape::Rounded);
        break;
    case PE_FrameLineEdit:
        DrawEdge(*painter, option->rect, option->state.testFlag(State_HasFocus) ? MarkColour(option->palette) : line, EdgeShape::Rounded);
        break;
    default:
        break;
    }
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionTitleBar *>(option);
    if (control == CC_TitleBar && bar != nullptr) {
        DrawTitleBar(*painter, *bar, *proxy(), widget);
        return;
    }
    if (control == CC_MdiControls) {
        DrawMenuBarButtons(*painter, *option, *proxy(), widget);
        return;
    }
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_Slider && slider != nullptr) {
        DrawSlider(*painter, *slider, *proxy(), widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const QColor line = LineColour(option->palette, option->state.testFlag(State_Enabled));
    if (control == CC_ComboBox) {
        DrawEdge(*painter, option->rect, ShowsFocus(*option) ? MarkColour(option->palette) : line, EdgeShape::Rounded);
    } else if (control == CC_ScrollBar) {
        DrawEdge(*painter, proxy()->subControlRect(control, option, SC_ScrollBarSlider, widget), line, EdgeShape::Square);
    }
}

int Look::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_TitleBarHeight:
        return kTitleBarHeight;
    case PM_MdiSubWindowFrameWidth:
        return kFrameWidth;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Look::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const
{
    // Words are enough on a button.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) {
        return 0;
    }
    // Square corners: no shape has to be cut out of the window.
    if (hint == SH_WindowFrame_Mask) {
        return 0;
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon Look::standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const
{
    switch (icon) {
    case SP_MessageBoxWarning:
        return WarningIcon();
    case SP_ToolBarHorizontalExtensionButton: // the style's own is a black image, even on a dark menu bar
        return MoreIcon();
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

void SetUpLook()
{
    QApplication::setStyle(new Look);
    QApplication::setWindowIcon(ProgramIcon());
    const std::string forced = qgetenv("VELLUTO_THEME").toStdString();
    const std::string_view theme = forced.empty() ? ThemeOfSystem() : forced;
    // Qt's stock blue means that the system has no colours of its own to give.
    const bool stock = QApplication::palette().color(QPalette::Highlight) == QColor(kStockHighlight);
    if (theme == "dark") {
        QApplication::setPalette(MakePalette(kDark));
    } else if (theme == "light" || stock) {
        QApplication::setPalette(MakePalette(kLight));
    }
}

void GetReadyToDraw(const std::future<void> &fonts)
{
    const QMenuBar unseen;
    if (fonts.valid()) {
        fonts.wait();
    }
    static_cast<void>(QFontMetrics(unseen.font()).horizontalAdvance(QLatin1Char('A')));
}

} // namespace velluto
