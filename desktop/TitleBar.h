// The title bars and borders of child windows.
#pragma once

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace velluto {

void DrawWindowFrame(QPainter &painter, const QStyleOption &option);
void DrawTitleBar(QPainter &painter, const QStyleOptionTitleBar &option, const QStyle &style, const QWidget *widget);
// The buttons of a maximised child, at the right end of the menu bar.
void DrawMenuBarButtons(QPainter &painter, const QStyleOptionComplex &option, const QStyle &style, const QWidget *widget);

} // namespace velluto
