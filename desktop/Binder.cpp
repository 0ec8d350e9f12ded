#include "desktop/Binder.h"

#include "desktop/QtText.h"
#include "desktop/Twips.h"
#include "view/Form.h"

namespace velluto {

Binder::~Binder()
{
    control_.observer = nullptr;
}

void Binder::Start()
{
    if (widget_ != nullptr) {
        widget_->setObjectName(FromUtf8(control_.FullName()));
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
            widget_->setToolTip(FromUtf8(control_.toolTip.Get()));
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
