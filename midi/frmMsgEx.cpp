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

frmMsgEx::frmMsgEx(MidiState &midi) : Form("frmMsgEx"), midi_(midi), app_(midi.app)
{
    Text1.multiLine = true;
    Text1.readOnly = true;
    Text1.MouseDown = [this](int button) { Form_MouseDown(button); };
}

Size frmMsgEx::NaturalTextSize() const
{
    const Size a = app_.face.MeasureA(Text1.font);
    return {kNaturalColumns * a.width, kNaturalRows * a.height};
}

void frmMsgEx::LayOut()
{
    if (Height() > kBelowText) {
        Text1.place = Place{0, 0, std::max(ScaleWidth(), 0), std::max(ScaleHeight() - kBelowText, 0)};
    }
}

void frmMsgEx::Form_Load()
{
    app_.children.RestoringLayout = true;
    Text1.font = kMonitorFont;
    Text1.accessibleName = app_.messages.Text(TextId::MidiMessages);

    WindowPlacement &entry = app_.settings.PlacementTable.at(PlacementEntry::Monitor);
    if (entry.MinWidth == 0) {
        const Size text = NaturalTextSize();
        entry.Top = 0;
        entry.Left = 0;
        entry.Width = NearestIn<std::uint16_t>(text.width + frame.width);
        entry.Height = NearestIn<std::uint16_t>(text.height + frame.height);
        entry.MinWidth = entry.Width;
        entry.MinHeight = entry.Height;
    }
    place = Place{entry.Left, entry.Top, entry.Width, entry.Height};
    entry.State = StoredState::Normal;
    Text1.text = "";
    LayOut();

    caption = app_.messages.Text(TextId::MidiMessages) + " - " + std::string(kProgramTitle);
    Tag = ToolTag(ViewKind::Monitor);
    ++app_.children.ChildCount;
    midi_.MonitorEnabled = true;
    app_.children.RestoringLayout = false;
}

void frmMsgEx::Form_Unload()
{
    app_.frame.mnuMsgEx.enabled = true;
    WindowPlacement &entry = app_.settings.PlacementTable.at(PlacementEntry::Monitor);
    StorePosition(entry, *this);
    StoreSize(entry, *this);
    entry.State = StoredState::Closed;
    --app_.children.ChildCount;
    midi_.MonitorEnabled = false;
    RefreshAfterClose(app_);
    app_.children.Bury(std::move(midi_.monitor));
}

void frmMsgEx::Form_Activate()
{
    RefreshWindowMenu(app_);
}

void frmMsgEx::Form_Resize()
{
    if (app_.children.RestoringLayout) {
        return;
    }
    WindowPlacement &entry = app_.settings.PlacementTable.at(PlacementEntry::Monitor);
    const int leastWidth = entry.MinWidth;
    const int leastHeight = entry.MinHeight;
    place = Place{Left(), Top(), std::max(Width(), leastWidth), std::max(Height(), leastHeight)};
    StoreSize(entry, *this);
    StoreState(entry, *this);
    LayOut();
}

void frmMsgEx::Form_MouseDown(int button)
{
    PopUpEditMenu(app_, button);
}

void mnuMsgEx_Click(MidiState &midi)
{
    if (midi.monitor == nullptr) {
        midi.monitor = std::make_unique<frmMsgEx>(midi);
    }
    midi.app.children.Show(*midi.monitor);
    midi.app.frame.mnuMsgEx.enabled = false;
}

} // namespace velluto
