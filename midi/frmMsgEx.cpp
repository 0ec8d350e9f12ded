#include "midi/frmMsgEx.h"

#include "app/Catalogue.h"
#include "app/StoredPlace.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr Font kMonitorFont{"courier new", 10, 400};
constexpr int kNaturalColumns = 64; // widths of "A"
constexpr int kNaturalRows = 30;    // heights of "A"
constexpr int kBelowText = 400;     // twips that the text box leaves free at the bottom

} // namespace

frmMsgEx::frmMsgEx(MidiState &midi)
    : ChildForm("frmMsgEx", kNoNumber, midi.app, &midi.app.frame.mnuMsgEx), midi_(midi),
      entry_(midi.app.settings.PlacementTable.at(PlacementEntry::Monitor))
{
    Text1.multiLine = true;
    Text1.readOnly = true;
    Text1.MouseDown = [this](int button) { Form_MouseDown(button); };
}

void frmMsgEx::LayOut()
{
    if (Height() > kBelowText) {
        Text1.place = Place{0, 0, std::max(ScaleWidth(), 0), std::max(ScaleHeight() - kBelowText, 0)};
    }
}

bool frmMsgEx::LoadWindow()
{
    Text1.font = kMonitorFont;
    Text1.accessibleName = app.messages.Text(TextId::MidiMessages);

    const Size a = app.face.MeasureA(Text1.font);
    PlaceFirst(entry_, {kNaturalColumns * a.width + frame.width, kNaturalRows * a.height + frame.height});
    place = PlaceOf(entry_);
    entry_.State = StoredState::Normal;
    Text1.text = "";
    LayOut();

    caption = app.messages.Text(TextId::MidiMessages) + " - " + std::string(kProgramTitle);
    Tag = ToolTag(ViewKind::Monitor);
    midi_.MonitorEnabled = true;
    return true;
}

void frmMsgEx::UnloadWindow()
{
    StorePlace(entry_, *this);
    entry_.State = StoredState::Closed;
    midi_.MonitorEnabled = false;
}

void frmMsgEx::Resized()
{
    place = Place{Left(), Top(), std::max<int>(Width(), entry_.MinWidth), std::max<int>(Height(), entry_.MinHeight)};
    StoreSize(entry_, *this);
    StoreState(entry_, *this);
    LayOut();
}

void mnuMsgEx_Click(MidiState &midi)
{
    ShowChild<frmMsgEx>(midi.monitor, midi);
}

} // namespace velluto
