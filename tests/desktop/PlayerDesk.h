// The player's window on the desktop, over a folder of files that the stand-in sequencer knows. For the tests of its controls.
#pragma once

#include "desktop/Desk.h"
#include "player/PlayerWindow.h"

#include <QLabel>
#include <QSlider>

namespace velluto::test {

class PlayerDesk : public Desk {
protected:
    void SetUp() override
    {
        Song("a.mid");
        Song("b.mid");
        Song("c.mid");
    }
    // A file of three bytes that plays for so many position units.
    void Song(const std::string &name, int length = 200)
    {
        std::filesystem::create_directories(std::filesystem::path(In(name)).parent_path());
        WriteBytes(In(name), Bytes(3, 0));
        sequencer.songs[In(name)] = {length, 0, {}};
    }
    [[nodiscard]] std::string In(const std::string &name) const { return folder->At("d/" + name); }

    // The program with its player, the file panel open on the folder d or closed.
    frmMIDIPlayer &Open(bool panel = true)
    {
        Start();
        app.settings.PlayerPanelOpen = panel;
        app.settings.PlayerDir = folder->At("d");
        ChooseMenu(app.frame.mnuMidiPlayer);
        Settle();
        return Form();
    }
    [[nodiscard]] frmMIDIPlayer &Form() { return *program.player.window; }
    [[nodiscard]] int Mode() { return Form().MMControl1.Mode(); }

    template <class W = QWidget>
    [[nodiscard]] W &Of(const Control &control)
    {
        return Widget<W>(Form(), control.FullName().c_str());
    }
    [[nodiscard]] ListView &View(const ListBox &list) { return Of<ListView>(list); }
    void Click(const Control &control)
    {
        QTest::mouseClick(&Of(control), Qt::LeftButton);
        Settle();
    }
    void Transport(int number) { Click(Form().MCIPuls[number]); }
    [[nodiscard]] QPoint On(const ListBox &list, int row) { return View(list).visualRect(View(list).model()->index(row, 0)).center(); }
    void ClickRow(const ListBox &list, int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(View(list).viewport(), Qt::LeftButton, modifiers, On(list, row));
        Settle();
    }
    void DoubleClickRow(const ListBox &list, int row)
    {
        ClickRow(list, row);
        QTest::mouseDClick(View(list).viewport(), Qt::LeftButton, {}, On(list, row));
        Settle();
    }
    void PressIn(const Control &control, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        Of(control).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&Of(control), key, modifiers);
        Settle();
    }
    // The left button on a widget, drawn across the screen by so many pixels in two steps; not let go yet.
    static void Draw(QWidget &widget, const QPoint &from, int pixels)
    {
        Send(widget, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        const QPoint start = widget.mapToGlobal(from);
        for (const int moved : {pixels / 2, pixels}) {
            // The widget may have moved along.
            Send(widget, QEvent::MouseMove, widget.mapFromGlobal(start + QPoint(moved, 0)), Qt::NoButton, Qt::LeftButton);
        }
    }
    static void Release(QWidget &widget) { Send(widget, QEvent::MouseButtonRelease, {}, Qt::LeftButton, {}); }
    static void Send(QWidget &widget, QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, widget.mapToGlobal(QPointF(at)), button, held, {});
        QCoreApplication::sendEvent(&widget, &event);
    }
    // The device plays on by itself to the end of its file and says so.
    void PlayToTheEnd()
    {
        sequencer.Advance(*sequencer.UntilEnd());
        while (sequencer.Deliver()) {
        }
    }
};

} // namespace velluto::test
