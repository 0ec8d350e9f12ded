#include "platform/windows/WinOutput.h"

#include "platform/windows/Windows.h"

#include <algorithm>
#include <mmsystem.h>

namespace velluto {

namespace {

constexpr std::size_t kLongestExclusive = std::size_t{1} << 16; // bytes; the system takes no more at once
constexpr int kPatience = 250;                                  // milliseconds at a close, for exclusive messages on their way

HMIDIOUT HandleOf(WinOutput::System system)
{
    return static_cast<HMIDIOUT>(system);
}

} // namespace

struct WinOutput::Exclusive {
    explicit Exclusive(std::span<const std::uint8_t> message) : bytes(message.begin(), message.end())
    {
        header.lpData = reinterpret_cast<LPSTR>(bytes.data());
        header.dwBufferLength = static_cast<DWORD>(bytes.size());
    }

    // The system says so on a thread of its own.
    [[nodiscard]] bool IsDone() const { return (static_cast<const volatile DWORD &>(header.dwFlags) & MHDR_DONE) != 0; }

    std::vector<std::uint8_t> bytes;
    MIDIHDR header{};
};

int WinOutput::Open(int number, int systemNumber, std::shared_ptr<WinOutput> &output)
{
    HMIDIOUT system = nullptr;
    const MMRESULT result = ::midiOutOpen(&system, static_cast<UINT>(systemNumber), 0, 0, CALLBACK_NULL);
    if (result == MMSYSERR_NOERROR) {
        output = std::make_shared<WinOutput>(number, system);
    }
    return static_cast<int>(result);
}

WinOutput::WinOutput(int number, System system) : number_(number), system_(system) {}

WinOutput::~WinOutput()
{
    Close();
    for (std::unique_ptr<Exclusive> &stuck : exclusives_) {
        (void)stuck.release(); // the system may still read it: it stays until the process ends
    }
}

int WinOutput::Send(ShortMessage message)
{
    const std::lock_guard lock(mutex_);
    return SendShort(message);
}

int WinOutput::Send(std::span<const std::uint8_t> message)
{
    const std::lock_guard lock(mutex_);
    if (message.empty()) {
        return MMSYSERR_INVALPARAM;
    }
    return message[0] == MidiStatus::kExclusive ? SendExclusive(message) : SendShort(ShortMessage(message));
}

int WinOutput::SendShort(ShortMessage message)
{
    if (system_ == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    const MMRESULT result = ::midiOutShortMsg(HandleOf(system_), message.Packed());
    gone_ = result == MIDIERR_NODEVICE;
    if (result == MMSYSERR_NOERROR) {
        notes_.Passed(message.View());
    }
    return static_cast<int>(result);
}

int WinOutput::SendExclusive(std::span<const std::uint8_t> message)
{
    if (system_ == nullptr) {
        return MMSYSERR_INVALHANDLE;
    }
    TakeBack();
    if (message.size() > kLongestExclusive) {
        return MMSYSERR_INVALPARAM;
    }
    auto exclusive = std::make_unique<Exclusive>(message);
    MMRESULT result = ::midiOutPrepareHeader(HandleOf(system_), &exclusive->header, sizeof(exclusive->header));
    if (result != MMSYSERR_NOERROR) {
        return static_cast<int>(result);
    }
    result = ::midiOutLongMsg(HandleOf(system_), &exclusive->header, sizeof(exclusive->header));
    if (result != MMSYSERR_NOERROR) {
        exclusive->header.dwFlags |= MHDR_DONE; // it was never the system's
    }
    exclusives_.push_back(std::move(exclusive));
    return static_cast<int>(result);
}

// What the system has read.
void WinOutput::TakeBack()
{
    std::erase_if(exclusives_, [this](const std::unique_ptr<Exclusive> &exclusive) {
        return exclusive->IsDone() &&
               ::midiOutUnprepareHeader(HandleOf(system_), &exclusive->header, sizeof(exclusive->header)) != MIDIERR_STILLPLAYING;
    });
}

// Everything: what the system does not read soon it is asked to hand back.
void WinOutput::TakeBackAll()
{
    for (int waited = 0; waited < kPatience && !std::ranges::all_of(exclusives_, &Exclusive::IsDone); ++waited) {
        ::Sleep(1);
    }
    if (!std::ranges::all_of(exclusives_, &Exclusive::IsDone)) {
        ::midiOutReset(HandleOf(system_));
    }
    TakeBack();
}

int WinOutput::Close()
{
    const std::lock_guard lock(mutex_);
    if (system_ == nullptr) {
        return MMSYSERR_NOERROR;
    }
    for (const ShortMessage &message : notes_.Releases()) {
        if (SendShort(message) != MMSYSERR_NOERROR) {
            break;
        }
    }
    TakeBackAll();
    const MMRESULT result = ::midiOutClose(HandleOf(system_));
    if (result == MMSYSERR_NOERROR) {
        system_ = nullptr;
    }
    return static_cast<int>(result);
}

NoteTracker WinOutput::Abandoned() const
{
    const std::lock_guard lock(mutex_);
    return notes_;
}

WinOutput::System WinOutput::Handle() const
{
    const std::lock_guard lock(mutex_);
    return system_;
}

bool WinOutput::Gone() const
{
    const std::lock_guard lock(mutex_);
    return gone_;
}

} // namespace velluto
