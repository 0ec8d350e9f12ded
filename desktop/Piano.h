// The piano keys of a form, drawn as one piano. It finds the key under the pointer, hands on what the pointer does with
// Y in the keys' own twips, and decides nothing. Used by KeyBinder; PianoAccess tells a screen reader about it.
#pragma once

#include "desktop/EventGate.h"
#include "view/Control.h"

#include <QBasicTimer>
#include <QWidget>

#include <optional>
#include <vector>

namespace velluto {

class Piano : public QWidget {
public:
    // The piano among the parent's widgets; made where there is none yet.
    static Piano &Of(QWidget &parent, EventGate &gate);
    ~Piano() override;

    void Add(PianoKey &key);
    void Remove(const PianoKey &key);
    void Redraw(const PianoKey &key);
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
    void PressAndRelease(int number);

    // The computer's key has been let go of, if no repeat of it says otherwise in a moment.
    [[nodiscard]] bool DoubtsRelease() const { return release_.isActive(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    Piano(EventGate &gate, QWidget *parent);
    void DrawKey(QPainter &painter, int number) const;
    void DrawDot(QPainter &painter, int number) const;
    void DrawCursor(QPainter &painter) const;
    void Press(int number, int button);
    void EndPress();
    void PassTo(const QPointF &point);
    void PassOver(int number, const QPointF &point);
    void Leave();
    void MoveCursor(int number);
    // The pointer is no longer ours, whoever has it now. What follows from that waits until no handler of a key runs.
    void LosePointer();
    template <class F>
    void Tell(F raise);

    EventGate &gate_;
    std::vector<PianoKey *> keys_;
    QRect twips_;                   // around all keys
    std::optional<QPointF> passed_; // where the pointer last was, while it is over the piano
    int pressed_ = -1;              // the key that the next release ends
    QBasicTimer release_;           // runs while it is not certain that the computer's key has been let go of
    quint64 releasedAt_ = 0;        // the display's milliseconds
    Qt::MouseButton button_ = Qt::NoButton;
    int cursor_ = 0;
    bool cursorShown_ = false;
    bool overByKeys_ = false; // the arrow keys have led to a key, as the pointer does
    int telling_ = 0;         // handlers of keys that are running
    bool lost_ = false;       // the pointer was lost meanwhile
};

} // namespace velluto
