// The binders of sliders, frames and piano keys.
#pragma once

#include "desktop/Binder.h"
#include "desktop/Piano.h"
#include "desktop/WidgetEvents.h"

#include <QFrame>
#include <QSlider>

namespace velluto {

class ScrollBinder : public Binder {
public:
    ScrollBinder(ScrollBar &bar, EventGate &gate, QSlider *slider);
    ~ScrollBinder() override { events_->Stop(); }

protected:
    void Show(Aspect aspect) override;

private:
    void TakeRange();
    bool Look(QEvent &event);

    ScrollBar &bar_;
    QSlider *slider_;
    WidgetEvents *events_;
    int turned_ = 0; // eighths of a degree of the wheel that make no whole notch yet
};

class FrameBinder : public Binder {
public:
    FrameBinder(Frame &frame, EventGate &gate, QWidget *box);
    ~FrameBinder() override { events_->Stop(); }

protected:
    void Show(Aspect /*aspect*/) override {}

private:
    WidgetEvents *events_;
};

// One key of the piano that all keys of a form share. The first of them is where the Tab key finds the piano.
class KeyBinder : public Binder {
public:
    KeyBinder(PianoKey &key, EventGate &gate, Piano &piano);
    ~KeyBinder() override { piano_.Remove(key_); }
    [[nodiscard]] QWidget *FocusWidget() const override { return first_ ? &piano_ : nullptr; }

protected:
    void Show(Aspect aspect) override;

private:
    PianoKey &key_;
    Piano &piano_;
    bool first_;
};

} // namespace velluto
