// Recall over stand-ins: one open output, roles as on a first run.
#pragma once

#include "banks/Recall.h"
#include "unit/support/ListWindows.h"
#include "unit/support/MidiLink.h"

namespace velluto::test {

struct RecallLink : MidiLink {
    FilesState files{app};
    RecallState recall{app, midi, files};
    Settings &settings = app.settings;

    RecallLink()
    {
        OpenOneOut();
        settings.ChannelRole = {2, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    }
    // The three messages of a row, as the device reads them.
    Sent Select(int kind, int slot, int row)
    {
        ListWindow window(kind, slot);
        devices.sent.clear();
        SelectOnInstrument(recall, window, row);
        return devices.sent;
    }
    // What goes out on a 0-based channel for an address.
    static Sent Messages(std::uint32_t ch, std::uint32_t msb, std::uint32_t lsb, std::uint32_t program)
    {
        return {msb << 16 | 0 << 8 | 0xB0 | ch, lsb << 16 | 0x20 << 8 | 0xB0 | ch, program << 8 | 0xC0 | ch};
    }
};

} // namespace velluto::test
