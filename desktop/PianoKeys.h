// The piano keys of a form as one widget: where they stand, which one lies at a point, how they look. All edges lie on whole dots
// of the screen, whatever its scale; a key keeps its colours in every theme. Piano adds what pointer and keys do to it;
// PianoAccess tells a screen reader about it.
#pragma once

#include "view/Control.h"

#include <QWidget>

#include <vector>

namespace velluto {

class PianoKeys : public QWidget {
public:
    using QWidget::QWidget;

    // Places the widget over all of its keys.
    void FollowPlaces();
    [[nodiscard]] int KeyCount() const { return static_cast<int>(keys_.size()); }
    [[nodiscard]] PianoKey &KeyOf(int number) const { return *keys_[static_cast<std::size_t>(number)]; }
    // number from 0; a rectangle on whole dots of the screen, in logical pixels of the widget.
    [[nodiscard]] QRectF RectOf(int number) const;
    // The key at a point of the widget, black keys first; -1 for none.
    [[nodiscard]] int KeyAt(const QPointF &point) const;
    // The key that the arrow keys have led to.
    [[nodiscard]] int Cursor() const { return cursor_; }
    virtual void PressAndRelease(int number) = 0;

protected:
    void paintEvent(QPaintEvent *event) override;

    std::vector<PianoKey *> keys_;
    int cursor_ = 0;
    bool cursorShown_ = false;

private:
    void DrawKey(QPainter &painter, int number) const;
    void DrawDot(QPainter &painter, int number) const;
    void DrawCursor(QPainter &painter) const;

    QRect twips_; // around all keys
};

} // namespace velluto
