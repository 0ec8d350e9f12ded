// The keyboard's window on the desktop, with one output open: hands for its keys and sliders, and what they send.
#pragma once

#include "desktop/Desk.h"
#include "desktop/Piano.h"
#include "keyboard/KeyboardWindow.h"
#include "midi/DeviceMenus.h"
#include "unit/support/MidiMessages.h"

#include <QSlider>

namespace velluto::test {

using testing::ElementsAre;
using testing::IsEmpty;

class KeyboardDesk : public Desk {
protected:
    void SetUp() override
    {
        Start();
        mnuDevMIDIOut_Click(program.midi, 0);
    }
    frmTastiera &Open(bool click = true, bool hold = false)
    {
        app.settings.KeyboardRecord[1] = click ? 1 : 0;
        app.settings.KeyboardRecord[2] = hold ? 1 : 0;
        ChooseMenu(app.frame.mnuTastiera);
        Settle();
        midi.sent.clear();
        return Form();
    }
    frmTastiera &Form() { return *program.keyboard.window; }
    Piano &Keys() { return *dynamic_cast<Piano *>(Window(Form()).findChild<QWidget *>(QStringLiteral("Piano"))); }
    Sent Taken()
    {
        Sent taken;
        taken.swap(midi.sent);
        return taken;
    }
    // A point on the key's own part, so many twips below its upper edge.
    QPointF On(int key, int y = 200)
    {
        const QRectF rect = Keys().RectOf(key);
        // Beside the black keys the white ones are free at their middle only where two are apart; below all are.
        const double x = Form().Key[key].black || y > 972 ? rect.center().x() : FreeX(key);
        return {x, rect.top() + rect.height() * (y + 0.5) / (Form().Key[key].black ? 972 : 1404)};
    }
    double FreeX(int key)
    {
        const QRectF rect = Keys().RectOf(key);
        for (double x = rect.left() + 0.5; x < rect.right(); x += 0.5) {
            if (Keys().KeyAt({x, 1}) == key) {
                return x;
            }
        }
        return rect.center().x();
    }
    void Send(QEvent::Type type, const QPointF &at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, Keys().mapToGlobal(at), button, held, {});
        QCoreApplication::sendEvent(&Keys(), &event);
    }
    void Down(const QPointF &at, Qt::MouseButton button = Qt::LeftButton) { Send(QEvent::MouseButtonPress, at, button, button); }
    void Up(const QPointF &at, Qt::MouseButton button = Qt::LeftButton) { Send(QEvent::MouseButtonRelease, at, button, {}); }
    void Move(const QPointF &at, Qt::MouseButtons held = {}) { Send(QEvent::MouseMove, at, Qt::NoButton, held); }
    void LeavePiano()
    {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&Keys(), &leave);
    }
    QSlider &Bar(const char *name) { return Widget<QSlider>(Form(), name); }
    void Turn(QWidget &over, int delta, Qt::KeyboardModifiers modifiers = {})
    {
        QWheelEvent turned(QPointF(5, 5), over.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, delta), Qt::NoButton, modifiers, Qt::NoScrollPhase,
                           false);
        QCoreApplication::sendEvent(&over, &turned);
    }
};

} // namespace velluto::test
