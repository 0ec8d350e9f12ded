// How the program looks: Qt's Fusion style with title bars and menu marks of our own, drawn in palette colours so that
// a dark theme suits it too.
#pragma once

#include <QProxyStyle>

namespace velluto {

// Child windows get flat title bars with line-drawn buttons, menus get a plain check mark in place of a check box.
class Look : public QProxyStyle {
public:
    Look();
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const override;
};

// Sets style and icon of the application. The colours are the system's, unless the environment variable VELLUTO_THEME says "dark" or
// "light".
void SetUpLook();

} // namespace velluto
