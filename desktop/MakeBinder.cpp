// Which kind of control is drawn by which widget.
#include "desktop/Binder.h"
#include "desktop/ElidedLabel.h"
#include "desktop/FittedButton.h"
#include "desktop/KeyboardBinders.h"
#include "desktop/PlayerBinders.h"
#include "desktop/QtText.h"
#include "desktop/SimpleBinders.h"
#include "desktop/TextBinder.h"
#include "desktop/WindowAccess.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

namespace velluto {

namespace {

std::unique_ptr<Binder> MakeTextBinder(TextBox &box, QWidget *parent, EventGate &gate)
{
    if (box.multiLine) {
        return std::make_unique<MultiLineBinder>(box, gate, new QPlainTextEdit(parent));
    }
    return std::make_unique<LineBinder>(box, gate, new QLineEdit(parent));
}

// With its words on its upper edge where it has any.
QWidget *MakeFrame(const Frame &frame, QWidget *parent)
{
    if (!frame.caption.Get().empty()) {
        return new QGroupBox(FromUtf8(frame.caption.Get()), parent);
    }
    return new BorderBox(parent);
}

} // namespace

std::unique_ptr<Binder> MakeBinder(Control &control, QWidget *parent, EventGate &gate)
{
    if (auto *button = dynamic_cast<Button *>(&control); button != nullptr && (button->glyph != Glyph::None || button->isToggle)) {
        return std::make_unique<ToggleBinder>(*button, gate, new PictureButton(button->glyph, parent));
    }
    if (dynamic_cast<Button *>(&control) != nullptr) {
        return std::make_unique<ButtonBinder>(control, gate, new FittedButton(parent));
    }
    if (dynamic_cast<CheckBox *>(&control) != nullptr) {
        return std::make_unique<ButtonBinder>(control, gate, new QCheckBox(parent));
    }
    if (dynamic_cast<OptionButton *>(&control) != nullptr) {
        return std::make_unique<ButtonBinder>(control, gate, new QRadioButton(parent));
    }
    if (auto *label = dynamic_cast<Label *>(&control)) {
        return std::make_unique<LabelBinder>(*label, gate, new ElidedLabel(parent));
    }
    if (auto *list = dynamic_cast<ListBox *>(&control)) {
        return std::make_unique<ListBinder>(*list, gate, new ListView(*list, gate, parent));
    }
    if (auto *drives = dynamic_cast<DriveList *>(&control)) {
        return std::make_unique<DriveBinder>(*drives, gate, new QComboBox(parent));
    }
    if (auto *combo = dynamic_cast<ComboBox *>(&control)) {
        return std::make_unique<ComboBinder>(*combo, gate, new QComboBox(parent));
    }
    if (auto *text = dynamic_cast<TextBox *>(&control)) {
        return MakeTextBinder(*text, parent, gate);
    }
    if (auto *emblem = dynamic_cast<Emblem *>(&control)) {
        return std::make_unique<EmblemBinder>(*emblem, gate, parent);
    }
    if (auto *picture = dynamic_cast<Picture *>(&control)) {
        return std::make_unique<PictureBinder>(*picture, gate, new BorderBox(parent));
    }
    if (auto *frame = dynamic_cast<Frame *>(&control)) {
        return std::make_unique<FrameBinder>(*frame, gate, MakeFrame(*frame, parent));
    }
    if (auto *marker = dynamic_cast<Marker *>(&control)) {
        return std::make_unique<MarkerBinder>(*marker, gate, parent);
    }
    if (auto *line = dynamic_cast<Line *>(&control)) {
        return std::make_unique<ScaleLineBinder>(*line, gate, parent);
    }
    if (auto *bar = dynamic_cast<ScrollBar *>(&control)) {
        return std::make_unique<ScrollBinder>(*bar, gate, new QSlider(parent));
    }
    if (auto *key = dynamic_cast<PianoKey *>(&control)) {
        return std::make_unique<KeyBinder>(*key, gate, Piano::Of(*parent, gate));
    }
    if (auto *timer = dynamic_cast<Timer *>(&control)) {
        return std::make_unique<TimerBinder>(*timer, gate);
    }
    return nullptr;
}

} // namespace velluto
