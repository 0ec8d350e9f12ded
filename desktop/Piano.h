// The piano keys of a form under the pointer and the computer's keys. It hands on what the pointer does with Y in the keys' own
// twips, and decides nothing. Used by KeyBinder.
#pragma once

#include "desktop/EventGate.h"
#include "desktop/LetterKeys.h"
#include "desktop/PianoKeys.h"

#include <QBasicTimer>

#include <optional>

namespace velluto {

class Piano : public PianoKeys {
public:
    // The piano among the parent's widgets; made where there is none yet.
    static Piano &Of(QWidget &parent, EventGate &gate);
    ~Piano() override;

    // All keys of the piano that lies in one window with the widget, where there is one.
    static void LetGoBeside(const QWidget &widget);

    void Add(PianoKey &key);
    void Remove(const PianoKey &key);
    void Redraw(const PianoKey &key);
    void PressAndRelease(int number) override;

    // The computer's key has been let go of, if no repeat of it says otherwise in a moment.
    [[nodiscard]] bool DoubtsRelease() const { return release_.isActive(); }

protected:
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
    void Press(int number, int button);
    void EndPress();
    void PressLetter(int number);
    // held: the key that a letter still holds, -1 for none.
    void ReleaseLetter(int number, int held);
    void PassTo(const QPointF &point);
    void PassOver(int number, const QPointF &point);
    void Leave();
    void MoveCursor(int number);
    // The pointer is no longer ours, whoever has it now. What follows from that waits until no handler of a key runs.
    void LosePointer();
    template <class F>
    void Tell(F raise);

    EventGate &gate_;
    std::optional<QPointF> passed_; // where the pointer last was, while it is over the piano
    int pressed_ = -1;              // the key that the next release ends
    QBasicTimer release_;           // runs while it is not certain that the computer's key has been let go of
    quint64 releasedAt_ = 0;        // the display's milliseconds
    Qt::MouseButton button_ = Qt::NoButton;
    bool overByKeys_ = false; // the arrow keys have led to a key, as the pointer does
    LetterKeys letters_{{[this](int number) { PressLetter(number); }, [this](int number, int held) { ReleaseLetter(number, held); }}};
    int telling_ = 0;   // handlers of keys that are running
    bool lost_ = false; // the pointer was lost meanwhile
};

} // namespace velluto
