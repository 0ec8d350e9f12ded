#include "desktop/Binder.h"

#include "desktop/FittedButton.h"
#include "desktop/Piano.h"
#include "desktop/QtText.h"
#include "desktop/Tips.h"
#include "desktop/Twips.h"
#include "desktop/WidgetEvents.h"
#include "view/Form.h"

#include <QAbstractScrollArea>
#include <QHelpEvent>
#include <QPointer>
#include <QToolTip>

namespace velluto {

namespace {

// A tip that is looked up when it is asked for, as long as the control is there.
void FollowLiveTip(QWidget &widget, const Control &control, QObject &life)
{
    if (!HasLiveTip(control)) {
        return;
    }
    auto *area = qobject_cast<QAbstractScrollArea *>(&widget);
    QWidget *shown = area != nullptr ? area->viewport() : &widget;
    new WidgetEvents(shown, [shown, &control, alive = QPointer<QObject>(&life)](const QEvent &event) {
        const QString tip = event.type() == QEvent::ToolTip && !alive.isNull() ? LiveTipOf(control) : QString();
        if (tip.isEmpty()) {
            return false;
        }
        QToolTip::showText(static_cast<const QHelpEvent &>(event).globalPos(), tip, shown);
        return true;
    });
}

void ShowTie(QWidget &widget, const Control &control)
{
    if (dynamic_cast<const Button *>(&control) != nullptr) {
        widget.setProperty(kTiedProperty, IsTied(control));
        widget.update();
    }
}

} // namespace

Binder::~Binder()
{
    control_.observer = nullptr;
}

void Binder::LetKeysGo()
{
    if (control_.rulesKeys) {
        Piano::LetGoBeside(*widget_);
    }
}

void Binder::Start()
{
    if (widget_ != nullptr) {
        widget_->setObjectName(FromUtf8(control_.FullName()));
        FollowLiveTip(*widget_, control_, receiver_);
    }
    for (const Aspect aspect :
         {Aspect::Caption, Aspect::Text, Aspect::Caret, Aspect::Rows, Aspect::Selection, Aspect::Current, Aspect::Value, Aspect::Range,
          Aspect::Enabled, Aspect::Checked, Aspect::Color, Aspect::Place, Aspect::ToolTip, Aspect::Visible}) {
        Update(aspect);
    }
    control_.observer = [this](Aspect aspect) { Update(aspect); };
}

void Binder::Update(Aspect aspect)
{
    if (widget_ != nullptr) {
        switch (aspect) {
        case Aspect::Enabled:
            widget_->setEnabled(control_.enabled);
            break;
        case Aspect::Visible:
            widget_->setVisible(control_.visible);
            break;
        case Aspect::Place:
            widget_->setGeometry(ToPixels(control_.place.Get()));
            break;
        case Aspect::ToolTip:
            widget_->setToolTip(TipOf(control_));
            ShowTie(*widget_, control_);
            break;
        case Aspect::Focus:
            widget_->setFocus();
            break;
        case Aspect::Caption:
            widget_->setAccessibleName(AccessibleNameOf(control_));
            break;
        default:
            break;
        }
    }
    Show(aspect);
}

QString AccessibleNameOf(const Control &control)
{
    if (!control.accessibleName.empty()) {
        return FromUtf8(control.accessibleName);
    }
    const QString caption = Spoken(control.caption.Get()).simplified();
    return caption.isEmpty() ? FromUtf8(control.FullName()) : caption;
}

} // namespace velluto
