#include "platform/windows/WinMidi.h"

#include "platform/music/SpinLock.h"
#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"

#include <algorithm>
#include <mmsystem.h>
// which the next one needs
#include <mmddk.h>
#include <mutex>
#include <utility>

namespace velluto {

// An open input. The system's thread reads it from the open on, until the close has returned.
struct WinMidi::Input {
    HMIDIIN system = nullptr;
    MidiHandle handle = 0;
    MidiInCallback callback;
    std::shared_ptr<WinOutput> linkedTo; // that Thru plays
    SpinLock lock;                       // guards what follows
    bool isLinked = false;
    NoteTracker thru; // what Thru has left sounding

    // On a thread of the system's, in which next to nothing may be done: it takes note of what came, hands it on, and does no more.
    static void CALLBACK Proc(HMIDIIN /*system*/, UINT message, DWORD_PTR instance, DWORD_PTR parameter1, DWORD_PTR parameter2)
    {
        auto *input = reinterpret_cast<Input *>(instance); // NOLINT(performance-no-int-to-ptr): the system passes pointers so
        if (message == MIM_DATA) {
            const std::unique_lock taken(input->lock, std::try_to_lock);
            if (taken.owns_lock() && input->isLinked) {
                input->thru.Passed(ShortMessage(static_cast<std::uint32_t>(parameter1)).View());
            }
        }
        if (input->callback.proc != nullptr) {
            input->callback.proc(input->handle, message, input->callback.instance, static_cast<std::uint32_t>(parameter1),
                                 static_cast<std::uint32_t>(parameter2));
        }
    }
};

namespace {

// What is not open any more, as the system says it.
constexpr int kNotOpen = MMSYSERR_INVALHANDLE;

UINT_PTR SystemNumber(int number)
{
    return static_cast<UINT_PTR>(static_cast<INT_PTR>(number)); // -1 is the mapper
}

// The interface of a device's driver, as a message to it tells. Drivers need not.
template <class Handle, MMRESULT(WINAPI *ask)(Handle, UINT, DWORD_PTR, DWORD_PTR)>
std::string PlaceOf(int systemNumber)
{
    constexpr ULONG kLongest = 4096;                                          // bytes
    const auto device = reinterpret_cast<Handle>(SystemNumber(systemNumber)); // NOLINT(performance-no-int-to-ptr): the system takes either
    ULONG size = 0;
    if (ask(device, DRV_QUERYDEVICEINTERFACESIZE, reinterpret_cast<DWORD_PTR>(&size), 0) != MMSYSERR_NOERROR || size > kLongest) {
        return {};
    }
    std::wstring place(size / sizeof(wchar_t) + 1, L'\0');
    if (ask(device, DRV_QUERYDEVICEINTERFACE, reinterpret_cast<DWORD_PTR>(place.data()), size) != MMSYSERR_NOERROR) {
        return {};
    }
    return Utf8Of(place.c_str());
}

// What the system says of one of its devices.
template <class Caps, MMRESULT(WINAPI *query)(UINT_PTR, Caps *, UINT), std::string (*placeOf)(int)>
int Look(int systemNumber, WinDevice &device)
{
    Caps about{};
    const MMRESULT result = query(SystemNumber(systemNumber), &about, sizeof(about));
    if (result == MMSYSERR_NOERROR) {
        device = {Utf8Of(about.szPname), systemNumber >= 0 ? placeOf(systemNumber) : ""};
    }
    return static_cast<int>(result);
}

int CountOuts()
{
    return static_cast<int>(::midiOutGetNumDevs());
}

int CountIns()
{
    return static_cast<int>(::midiInGetNumDevs());
}

constexpr WinList kOuts{&CountOuts, &Look<MIDIOUTCAPSW, &::midiOutGetDevCapsW, &PlaceOf<HMIDIOUT, &::midiOutMessage>>};
constexpr WinList kIns{&CountIns, &Look<MIDIINCAPSW, &::midiInGetDevCapsW, &PlaceOf<HMIDIIN, &::midiInMessage>>};

// As many letters of the name as the field has room for.
int Caps(WinNumbers &numbers, int number, MidiDeviceCaps &caps)
{
    std::string name;
    const int result = numbers.Name(number, name);
    if (result != MMSYSERR_NOERROR) {
        return result;
    }
    std::size_t length = std::min(name.size(), caps.name.size() - 1);
    while (length > 0 && length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) {
        --length;
    }
    caps.name.fill('\0');
    std::copy_n(name.begin(), length, caps.name.begin());
    return result;
}

} // namespace

WinMidi::WinMidi(KnownDevices known) : known_(std::move(known)), outNumbers_(kOuts, known_.outs), inNumbers_(kIns, known_.ins) {}

WinMidi::~WinMidi()
{
    outputChanged = [] {}; // whoever would hear it may have gone before
    while (!inputs_.empty()) {
        const MidiHandle handle = inputs_.begin()->first;
        if (WinMidi::midiInClose(handle) != MMSYSERR_NOERROR) {
            const auto stuck = inputs_.find(handle);
            EndThru(*stuck->second, false);
            (void)stuck->second.release(); // the system may still call it: it stays until the process ends
            inputs_.erase(stuck);
        }
    }
    for (const auto &[handle, output] : outputs_) {
        output->Close();
    }
    if (songs_) {
        songs_->Close();
    }
    const KnownDevices known{outNumbers_.ToKeep(chosenOut_), inNumbers_.ToKeep(-1)};
    if (known != known_) {
        keep(known);
    }
}

WinOutput *WinMidi::FindOutput(MidiHandle handle) const
{
    const auto found = outputs_.find(handle);
    return found != outputs_.end() ? found->second.get() : nullptr;
}

WinMidi::Input *WinMidi::FindInput(MidiHandle handle) const
{
    const auto found = inputs_.find(handle);
    return found != inputs_.end() ? found->second.get() : nullptr;
}

int WinMidi::midiOutGetNumDevs()
{
    return outNumbers_.Count();
}

std::optional<MidiDeviceCounts> WinMidi::CountAgain()
{
    return MidiDeviceCounts{outNumbers_.Count(), inNumbers_.Count()};
}

int WinMidi::midiOutGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(outNumbers_, number, caps);
}

// With what an earlier one left sounding ended.
int WinMidi::Open(int number, std::shared_ptr<WinOutput> &output)
{
    int systemNumber = 0;
    int result = outNumbers_.Find(number, systemNumber);
    if (result == MMSYSERR_NOERROR) {
        result = WinOutput::Open(number, systemNumber, output);
    }
    const auto left = abandoned_.find(number);
    if (result == MMSYSERR_NOERROR && left != abandoned_.end() && Silence(*output, left->second)) {
        abandoned_.erase(left);
    }
    return result;
}

int WinMidi::Close(WinOutput &output)
{
    const int result = output.Close();
    if (const NoteTracker left = output.Abandoned(); result == MMSYSERR_NOERROR && !left.Silent()) {
        abandoned_[output.Number()].Add(left);
    }
    return result;
}

int WinMidi::midiOutOpen(MidiHandle &handle, int number)
{
    chosenOut_ = number;
    const bool songsStandAside = songs_ != nullptr;
    if (songsStandAside) {
        Close(*songs_);
        songs_.reset();
    }
    std::shared_ptr<WinOutput> output;
    const int result = Open(number, output);
    if (result == MMSYSERR_NOERROR) {
        handle = ++last_;
        outputs_.emplace(handle, std::move(output));
    }
    if (result == MMSYSERR_NOERROR || songsStandAside) {
        outputChanged();
    }
    return result;
}

int WinMidi::midiOutClose(MidiHandle handle)
{
    WinOutput *output = FindOutput(handle);
    if (output == nullptr) {
        return MidiCode::kSuccess;
    }
    for (const auto &[number, input] : inputs_) {
        if (input->linkedTo.get() == output) {
            EndThru(*input, false);
        }
    }
    const int result = Close(*output);
    if (result == MMSYSERR_NOERROR) {
        outputs_.erase(handle);
        outputChanged();
    }
    return result;
}

int WinMidi::midiOutShortMsg(MidiHandle handle, ShortMessage message)
{
    WinOutput *output = FindOutput(handle);
    return output == nullptr ? kNotOpen : output->Send(message);
}

std::shared_ptr<WinOutput> WinMidi::ForSongs()
{
    if (!outputs_.empty() && !outputs_.rbegin()->second->Gone()) {
        return outputs_.rbegin()->second;
    }
    if (songs_ && (songs_->Gone() || !songs_->IsOpen())) {
        Close(*songs_);
        songs_.reset();
    }
    if (!songs_) {
        Open(outNumbers_.First(), songs_);
    }
    return songs_;
}

// Ends what Thru has left sounding on its output.
void WinMidi::EndThru(Input &input, bool staysLinked)
{
    if (!input.linkedTo) {
        return;
    }
    NoteTracker left;
    {
        const std::lock_guard lock(input.lock);
        left = std::exchange(input.thru, NoteTracker());
        input.isLinked = staysLinked;
    }
    if (!Silence(*input.linkedTo, left)) {
        abandoned_[input.linkedTo->Number()].Add(left);
    }
    if (!staysLinked) {
        input.linkedTo.reset();
    }
}

int WinMidi::midiInGetNumDevs()
{
    return inNumbers_.Count();
}

int WinMidi::midiInGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(inNumbers_, number, caps);
}

int WinMidi::midiInOpen(MidiHandle &handle, int number, MidiInCallback callback)
{
    int systemNumber = 0;
    if (const int result = inNumbers_.Find(number, systemNumber); result != MMSYSERR_NOERROR) {
        return result;
    }
    auto input = std::make_unique<Input>();
    input->handle = last_ + 1; // known before the system calls for the first time, which it does inside the open
    input->callback = callback;
    const MMRESULT result = ::midiInOpen(&input->system, static_cast<UINT>(systemNumber), reinterpret_cast<DWORD_PTR>(&Input::Proc),
                                         reinterpret_cast<DWORD_PTR>(input.get()), CALLBACK_FUNCTION);
    if (result == MMSYSERR_NOERROR) {
        handle = ++last_;
        inputs_.emplace(handle, std::move(input));
    }
    return static_cast<int>(result);
}

int WinMidi::midiInClose(MidiHandle handle)
{
    Input *input = FindInput(handle);
    if (input == nullptr) {
        return MidiCode::kSuccess;
    }
    const MMRESULT result = ::midiInClose(input->system);
    if (result == MMSYSERR_NOERROR) {
        EndThru(*input, false);
        inputs_.erase(handle);
    }
    return static_cast<int>(result);
}

int WinMidi::midiInStart(MidiHandle handle)
{
    const Input *input = FindInput(handle);
    return input == nullptr ? kNotOpen : static_cast<int>(::midiInStart(input->system));
}

int WinMidi::midiInStop(MidiHandle handle)
{
    Input *input = FindInput(handle);
    if (input == nullptr) {
        return kNotOpen;
    }
    const MMRESULT result = ::midiInStop(input->system);
    if (result == MMSYSERR_NOERROR) {
        EndThru(*input, true);
    }
    return static_cast<int>(result);
}

int WinMidi::midiConnect(MidiHandle in, MidiHandle out)
{
    Input *input = FindInput(in);
    const auto output = outputs_.find(out);
    if (input == nullptr || output == outputs_.end()) {
        return kNotOpen;
    }
    const MMRESULT result = ::midiConnect(reinterpret_cast<HMIDI>(input->system), static_cast<HMIDIOUT>(output->second->Handle()), nullptr);
    if (result == MMSYSERR_NOERROR) {
        input->linkedTo = output->second;
        const std::lock_guard lock(input->lock);
        input->isLinked = true;
    }
    return static_cast<int>(result);
}

int WinMidi::midiDisconnect(MidiHandle in, MidiHandle out)
{
    Input *input = FindInput(in);
    const WinOutput *output = FindOutput(out);
    if (input == nullptr || output == nullptr) {
        return kNotOpen;
    }
    const MMRESULT result = ::midiDisconnect(reinterpret_cast<HMIDI>(input->system), static_cast<HMIDIOUT>(output->Handle()), nullptr);
    if (result == MMSYSERR_NOERROR) {
        EndThru(*input, false);
    }
    return static_cast<int>(result);
}

} // namespace velluto
