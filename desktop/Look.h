// How the program looks: Qt's Fusion style with title bars and menu marks of our own, drawn in palette colours so that
// a dark theme suits it too.
#pragma once

#include <QProxyStyle>

#include <future>

namespace velluto {

// Child windows get flat title bars with line-drawn buttons, menus get a plain check mark in place of a check box,
// and tool tips get out of the pointer's way.
class Look : public QProxyStyle {
public:
    Look();
    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override;
};

// Sets style and icon of the application, and our own dark or light colours where the environment variable VELLUTO_THEME or else
// ThemeOfSystem names one; light ones where Qt has none of the system's. Elsewhere the colours are the system's.
void SetUpLook();

// Lets Qt do at once what it does before its first window: find the desktop's bus, take up the machine's fonts. That takes it
// some milliseconds; where this is not called, the first window waits for it.
// fonts: what reads them ahead, if anything does.
void GetReadyToDraw(const std::future<void> &fonts);

} // namespace velluto
