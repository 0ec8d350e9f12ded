#include "platform/windows/WinOutputs.h"

#include "platform/windows/Windows.h"

#include <mmsystem.h>
#include <utility>

namespace velluto {

namespace {

constexpr UINT kPeriod = 1; // milliseconds from one look of the system's at its timers to the next

} // namespace

void WinOutputs::Move()
{
    Rest();
    output_.reset();
}

bool WinOutputs::Wake()
{
    std::shared_ptr<WinOutput> output = midi_.ForSongs();
    isForSongsAlone_ = midi_.IsForSongsAlone(output);
    return std::exchange(output_, output) != output && output;
}

void WinOutputs::Rest()
{
    if (output_ && isForSongsAlone_) {
        output_->Close();
    }
}

void WinOutputs::Send(std::span<const std::uint8_t> message, TimePoint /*due*/)
{
    if (output_) {
        output_->Send(message);
    }
}

void WinOutputs::KeepTime(bool messagesFallDue)
{
    if (messagesFallDue) {
        ::timeBeginPeriod(kPeriod);
    } else {
        ::timeEndPeriod(kPeriod);
    }
}

} // namespace velluto
