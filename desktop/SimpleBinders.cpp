#include "desktop/SimpleBinders.h"

#include "desktop/Icon.h"
#include "desktop/Keys.h"
#include "desktop/QtText.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace velluto {

namespace {

// Presses of the mouse that a control wants to hear of. The widget goes on with them as ever.
void TellMousePress(Control &control, EventGate &gate, const QEvent &event)
{
    if (event.type() == QEvent::MouseButtonPress && control.MouseDown) {
        const EventGate::Pass pass(gate);
        control.MouseDown(ButtonCode(static_cast<const QMouseEvent &>(event).button()));
    }
}

// Draws the program's picture anew at whatever size and resolution it has.
class EmblemView : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        ProgramIcon().paint(&painter, rect());
    }
};

Qt::Alignment AcrossFor(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return Qt::AlignHCenter;
    case Alignment::Right:
        return Qt::AlignRight;
    case Alignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

} // namespace

ButtonBinder::ButtonBinder(Control &control, EventGate &gate, QAbstractButton *button)
    : Binder(control, gate, button), pressed_(control), button_(button)
{
    button->setAttribute(Qt::WA_NoMousePropagation);
    QObject::connect(button, &QAbstractButton::clicked, receiver(), [this, &control, &gate] {
        LetKeysGo();
        const EventGate::Pass pass(gate);
        Press(control);
    });
}

bool ButtonBinder::IsOn() const
{
    if (const auto *box = dynamic_cast<const CheckBox *>(&pressed_)) {
        return box->value;
    }
    const auto *option = dynamic_cast<const OptionButton *>(&pressed_);
    return option != nullptr && option->value;
}

void ButtonBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Caption) {
        button_->setText(WithAccessKey(pressed_.caption.Get()));
    } else if (aspect == Aspect::Checked && button_->isCheckable()) {
        button_->setChecked(IsOn());
    }
}

LabelBinder::LabelBinder(Label &label, EventGate &gate, QLabel *drawn) : Binder(label, gate, drawn), label_(label), drawn_(drawn)
{
    drawn->setTextFormat(Qt::PlainText);
    QFont font = drawn->font();
    font.setBold(label.bold);
    drawn->setFont(font);
    events_ = new WidgetEvents(drawn, [&label, &gate](QEvent &event) {
        TellMousePress(label, gate, event);
        if (event.type() == QEvent::MouseButtonDblClick && label.DblClick) {
            const EventGate::Pass pass(gate);
            label.DblClick();
        }
        return event.type() == QEvent::MouseButtonPress && label.MouseDown;
    });
}

// Large letters that fit their place in one font are too high for it in another.
void LabelBinder::FitLargeLetters()
{
    QFont font = drawn_->font();
    int points = label_.points;
    do {
        font.setPointSize(points);
        --points;
    } while (points > 0 && QFontMetrics(font).height() > drawn_->height());
    drawn_->setFont(font);
}

void LabelBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Place && label_.points > 0) {
        FitLargeLetters();
    } else if (aspect == Aspect::Caption) {
        drawn_->setAlignment(Qt::AlignVCenter | AcrossFor(label_.alignment));
        drawn_->setText(ToLines(WithAccessKey(control().caption.Get())));
    }
}

EmblemBinder::EmblemBinder(Emblem &emblem, EventGate &gate, QWidget *parent) : Binder(emblem, gate, new EmblemView(parent)) {}

PictureBinder::PictureBinder(Picture &picture, EventGate &gate, BorderBox *box) : Binder(picture, gate, box)
{
    box->lower();
}

ComboBinder::ComboBinder(ComboBox &combo, EventGate &gate, QComboBox *drawn) : Binder(combo, gate, drawn), combo_(combo), drawn_(drawn)
{
    for (const std::string &row : combo.rows) {
        drawn->addItem(FromUtf8(row));
    }
    drawn->setMaxVisibleItems(drawn->count());
    drawn->setFocusPolicy(Qt::StrongFocus);
    drawn->setAttribute(Qt::WA_NoMousePropagation);
    QObject::connect(drawn, &QComboBox::activated, receiver(), [this, &combo, &gate](int row) {
        LetKeysGo();
        const EventGate::Pass pass(gate);
        combo.ListIndex = row;
    });
    events_ = new WidgetEvents(drawn, [&combo, &gate, drawn](QEvent &event) {
        TellMousePress(combo, gate, event);
        if (event.type() == QEvent::MouseButtonPress) {
            return static_cast<const QMouseEvent &>(event).button() != Qt::LeftButton;
        }
        // A wheel turned in passing changes nothing.
        return event.type() == QEvent::Wheel && !drawn->hasFocus();
    });
}

void ComboBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Caption) {
        NameCombo(*drawn_, AccessibleNameOf(combo_));
    } else if (aspect == Aspect::Current) {
        drawn_->setCurrentIndex(combo_.ListIndex);
    }
}

void ListBinder::Show(Aspect aspect)
{
    if (aspect == Aspect::Rows) {
        view_->RowsChanged();
    } else if (aspect == Aspect::Selection) {
        view_->SelectionChanged();
    } else if (aspect == Aspect::Current) {
        view_->CurrentChanged();
    }
}

TimerBinder::TimerBinder(Timer &timer, EventGate &gate) : Binder(timer, gate, nullptr), timer_(timer)
{
    clock_.setInterval(timer.interval);
    QObject::connect(&clock_, &QTimer::timeout, receiver(), [&timer, &gate] {
        if (!gate.Busy()) {
            const EventGate::Pass pass(gate);
            Raise(timer.Tick);
        }
    });
}

void TimerBinder::Show(Aspect aspect)
{
    if (aspect != Aspect::Enabled) {
        return;
    }
    if (timer_.enabled) {
        clock_.start();
    } else {
        clock_.stop();
    }
}

} // namespace velluto
