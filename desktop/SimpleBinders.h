// The binders of the plain controls: button, check box, option, label, emblem, picture, combo box, list, timer.
#pragma once

#include "desktop/Binder.h"
#include "desktop/ListView.h"
#include "desktop/WidgetEvents.h"
#include "desktop/WindowAccess.h"
#include "view/Control.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QTimer>

namespace velluto {

// Buttons, check boxes and options.
class ButtonBinder : public Binder {
public:
    ButtonBinder(Control &control, EventGate &gate, QAbstractButton *button);

protected:
    void Show(Aspect aspect) override;

private:
    [[nodiscard]] bool IsOn() const;
    Control &pressed_;
    QAbstractButton *button_;
};

class LabelBinder : public Binder {
public:
    LabelBinder(Label &label, EventGate &gate, QLabel *drawn);
    ~LabelBinder() override { events_->Stop(); }

protected:
    void Show(Aspect aspect) override;

private:
    void FitLargeLetters();
    Label &label_;
    QLabel *drawn_;
    WidgetEvents *events_;
};

class EmblemBinder : public Binder {
public:
    EmblemBinder(Emblem &emblem, EventGate &gate, QWidget *parent);

protected:
    void Show(Aspect /*aspect*/) override {}
};

class PictureBinder : public Binder {
public:
    PictureBinder(Picture &picture, EventGate &gate, BorderBox *box);

protected:
    void Show(Aspect /*aspect*/) override {}
};

class ComboBinder : public Binder {
public:
    ComboBinder(ComboBox &combo, EventGate &gate, QComboBox *drawn);
    ~ComboBinder() override { events_->Stop(); }

protected:
    void Show(Aspect aspect) override;

private:
    ComboBox &combo_;
    QComboBox *drawn_;
    WidgetEvents *events_;
};

class ListBinder : public Binder {
public:
    ListBinder(ListBox &list, EventGate &gate, ListView *view) : Binder(list, gate, view), view_(view) {}
    ~ListBinder() override { view_->Detach(); }

protected:
    void Show(Aspect aspect) override;

private:
    ListView *view_;
};

// Ticks between events only: a tick that comes while a handler runs is left out.
class TimerBinder : public Binder {
public:
    TimerBinder(Timer &timer, EventGate &gate);

protected:
    void Show(Aspect aspect) override;

private:
    Timer &timer_;
    QTimer clock_;
};

} // namespace velluto
