// The computer's letter keys as two rows of piano keys, by their place on the keyboard and not by what is written on them. Several
// sound at once. Used by Piano.
#pragma once

#include "desktop/EventGate.h"

#include <QBasicTimer>
#include <QKeyEvent>
#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace velluto {

// The piano key, from 0, that a key of the computer plays; nothing for the other keys, and where it is pressed with Ctrl, Alt or
// the like. The lower row begins at the third C, the upper one an octave above.
[[nodiscard]] std::optional<int> PianoKeyOf(const QKeyEvent &event);

// Milliseconds that a release is taken for one of a key that repeats: the press that belongs to it is on its way already.
inline constexpr int kReleaseDoubt = 2;

class LetterKeys : public QObject {
public:
    // press and release are called with the number of a piano key, and with the key that is still held, -1 for none.
    struct Hands {
        std::function<void(int number)> press;
        std::function<void(int number, int held)> release;
    };
    explicit LetterKeys(Hands hands) : hands_(std::move(hands)) {}

    // True for an event of a letter key, which has had its answer then.
    bool Press(const QKeyEvent &event);
    bool Release(const QKeyEvent &event);
    // The keyboard is somebody else's now.
    void LetAllGo();
    [[nodiscard]] bool Holds(int number) const;
    void Forget();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Held {
        quint32 scanCode = 0;
        int number = 0;
        std::optional<quint64> releasedAt = {}; // the display's milliseconds, while it is not certain
    };
    [[nodiscard]] std::vector<Held>::iterator Find(quint32 scanCode);
    void End(quint32 scanCode);
    void EndDoubtful();

    Hands hands_;
    std::vector<Held> held_; // in the order of their presses
    QBasicTimer doubt_;
};

} // namespace velluto
