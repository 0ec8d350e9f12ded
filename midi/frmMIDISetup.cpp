#include "midi/frmMIDISetup.h"

#include "app/Catalogue.h"
#include "app/StoredPlace.h"
#include "midi/Roles.h"

#include <algorithm>
#include <string>

namespace velluto {

namespace {

constexpr int kRowsPerColumn = 8; // channels 1 to 8 at the left, 9 to 16 at the right

// Twips.
constexpr int kMargin = 120;
constexpr int kLabelWidth = 750;
constexpr int kLabelHeight = 285;
constexpr int kComboWidth = 1350;
constexpr int kComboHeight = 345;
constexpr int kRowPitch = kComboHeight + 75;
constexpr int kColumnPitch = kLabelWidth + kComboWidth + 2 * kMargin;

} // namespace

frmMIDISetup::frmMIDISetup(MidiState &midi)
    : ChildForm("frmMIDISetup", kNoNumber, midi.app, &midi.app.frame.mnuMIDISetup),
      entry_(midi.app.settings.PlacementTable.at(PlacementEntry::ChannelSetup))
{
    caption = "MIDI setup";
    const auto popUp = [this](int button) { Form_MouseDown(button); };
    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        Label1Ch[channel].caption = (channel < 10 ? "Ch   " : "Ch ") + std::to_string(channel) + ":";
        Label1Ch[channel].MouseDown = popUp;
        Combo1[channel].rows.assign(kRoleNames.begin(), kRoleNames.end());
        Combo1[channel].MouseDown = popUp;
    }
}

void frmMIDISetup::LayOut()
{
    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        const int column = (channel - 1) / kRowsPerColumn;
        const int row = (channel - 1) % kRowsPerColumn;
        const int left = kMargin + column * kColumnPitch;
        const int top = kMargin + row * kRowPitch;
        Label1Ch[channel].place = Place{left, top + (kComboHeight - kLabelHeight) / 2, kLabelWidth, kLabelHeight};
        Combo1[channel].place = Place{left + kLabelWidth, top, kComboWidth, kComboHeight};
        Combo1[channel].accessibleName = app.messages.Text(TextId::MidiChannel) + " " + std::to_string(channel);
    }
}

bool frmMIDISetup::LoadWindow()
{
    LayOut();
    const Place last = Combo1[kMidiChannels].place;
    const int naturalWidth = last.left + last.width + kMargin + frame.width;
    const int naturalHeight = last.top + last.height + kMargin + frame.height;

    if (entry_.MinWidth == 0) {
        entry_.Top = 0;
        entry_.Left = 0;
        entry_.MinWidth = NearestIn<std::uint16_t>(naturalWidth);
    }
    place = Place{entry_.Left, entry_.Top, naturalWidth, naturalHeight};
    entry_.State = StoredState::Normal;

    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        const int role = app.settings.ChannelRole.at(static_cast<std::size_t>(channel - 1));
        Combo1[channel].ListIndex = std::min(role, kRoleCount - 1);
    }
    Tag = ToolTag(ViewKind::ChannelSetup);
    return true;
}

void frmMIDISetup::TakeOverRoles()
{
    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        const int role = std::clamp<int>(Combo1[channel].ListIndex, 0, kRoleCount - 1);
        app.settings.ChannelRole.at(static_cast<std::size_t>(channel - 1)) = static_cast<std::uint8_t>(role);
    }
}

void frmMIDISetup::Form_Deactivate()
{
    TakeOverRoles();
}

void frmMIDISetup::Form_LostFocus()
{
    if (entry_.State == StoredState::Normal) {
        TakeOverRoles();
    }
}

void frmMIDISetup::UnloadWindow()
{
    TakeOverRoles();
    StorePosition(entry_, *this);
    entry_.State = StoredState::Closed;
}

void mnuMIDISetup_Click(MidiState &midi)
{
    ShowChild<frmMIDISetup>(midi.setup, midi);
}

} // namespace velluto
