// The MIDI devices of Windows behind the program's port, with its own names and result codes. Made by MakeMachineMusic. To what the
// system's calls do it adds that no note rings on: what sounds ends when an output is closed, or Thru is; and that a device keeps its
// number, which is the system's where nothing is known of it, for the whole run and has it again in the next.
#pragma once

#include "platform/MidiDevices.h"

#include "platform/music/KnownDevices.h"
#include "platform/music/NoteTracker.h"
#include "platform/windows/WinNumbers.h"
#include "platform/windows/WinOutput.h"

#include <functional>
#include <map>
#include <memory>

namespace velluto {

class WinMidi : public MidiDevices {
public:
    explicit WinMidi(KnownDevices known = {});
    // Closes what is open.
    ~WinMidi() override;
    WinMidi(const WinMidi &) = delete;
    WinMidi &operator=(const WinMidi &) = delete;

    int midiOutGetNumDevs() override;
    // The number -1 is the system's mapper, here and where an output is opened.
    int midiOutGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiOutOpen(MidiHandle &handle, int number) override;
    int midiOutClose(MidiHandle handle) override;
    int midiOutShortMsg(MidiHandle handle, ShortMessage message) override;
    int midiInGetNumDevs() override;
    int midiInGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiInOpen(MidiHandle &handle, int number, MidiInCallback callback) override;
    int midiInClose(MidiHandle handle) override;
    int midiInStart(MidiHandle handle) override;
    int midiInStop(MidiHandle handle) override;
    int midiConnect(MidiHandle in, MidiHandle out) override;
    int midiDisconnect(MidiHandle in, MidiHandle out) override;
    std::optional<MidiDeviceCounts> CountAgain() override;

    // Where songs go: to the output that the program has opened last; where none is open, to the first device there, which is theirs until
    // the program opens one. Null where that cannot be had.
    std::shared_ptr<WinOutput> ForSongs();
    [[nodiscard]] bool IsForSongsAlone(const std::shared_ptr<WinOutput> &output) const { return output && output == songs_; }
    // Called at the end with what is known of devices, where that has changed in this run.
    std::function<void(const KnownDevices &known)> keep = [](const KnownDevices &) {};
    // Called after ForSongs has come to give something else.
    std::function<void()> outputChanged = [] {};

private:
    struct Input;

    // Nothing for a number that is not, or no longer, that of an open device.
    [[nodiscard]] WinOutput *FindOutput(MidiHandle handle) const;
    [[nodiscard]] Input *FindInput(MidiHandle handle) const;
    int Open(int number, std::shared_ptr<WinOutput> &output);
    int Close(WinOutput &output);
    void EndThru(Input &input, bool staysLinked);

    const KnownDevices known_;
    int chosenOut_ = -1; // in this run
    WinNumbers outNumbers_;
    WinNumbers inNumbers_;
    // The system's handles are wider than the program's, and one that was closed may not be shown to the system again.
    std::map<MidiHandle, std::shared_ptr<WinOutput>> outputs_;
    std::shared_ptr<WinOutput> songs_;     // of songs alone
    std::map<int, NoteTracker> abandoned_; // by number, on devices that went with notes on them; ended when they are back
    std::map<MidiHandle, std::unique_ptr<Input>> inputs_;
    MidiHandle last_ = 0;
};

} // namespace velluto
