// The title bars and borders of child windows.
#pragma once

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace velluto {

void DrawWindowFrame(QPainter &painter, const QStyleOption &option);
void DrawTitleBar(QPainter &painter, const QStyleOptionTitleBar &bar, const QStyle &style, const QWidget *widget);

} // namespace velluto
